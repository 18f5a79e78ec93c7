// The catalogue of parameter kinds, and the lists of the models.
#include "links/simulated_parameters.h"

#include <algorithm>
#include <array>

namespace chartproject {

namespace {

using enum Quantity;

constexpr auto kKinds = std::to_array<ParameterKind>({
    {"Speed reference", "Referência de velocidade", "Referencia de velocidad", "DirectF0", "rpm", kSpeedReference, 0, 0,
     9999},
    {"Motor speed", "Velocidade do motor", "Velocidad del motor", "DirectF0", "rpm", kSpeed, 0, 0, 9999},
    {"Motor speed (13 bits)", "Velocidade do motor (13 bits)", "Velocidad del motor (13 bits)", "13BitsRPMF0", "rpm",
     kSpeed, 0, -9999, 9999},
    {"Speed in percent", "Velocidade em porcento", "Velocidad en porcentaje", "PercentageF1", "%", kSpeedPercent, 0,
     -150, 150},
    {"Motor current", "Corrente do motor", "Corriente del motor", "CurrentF1", "A", kCurrent, 0, 0, 2600},
    {"Current in percent", "Corrente em porcento", "Corriente en porcentaje", "PercentageF1", "%", kCurrentPercent, 0,
     0, 999.9},
    {"DC link voltage", "Tensão do circuito intermediário", "Tensión del circuito intermedio", "VoltageF0", "V",
     kBusVoltage, 0, 0, 1235},
    {"Motor frequency", "Frequência do motor", "Frecuencia del motor", "FrequencyF1", "Hz", kFrequency, 0, 0, 1020},
    {"Drive status", "Estado do acionamento", "Estado del accionamiento", "DirectF0", "", kStatusWord, 0, 0, 65535},
    {"Output voltage", "Tensão de saída", "Tensión de salida", "VoltageF0", "V", kOutputVoltage, 0, 0, 800},
    {"Mains voltage", "Tensão da rede", "Tensión de la red", "VoltageF1", "V", kMainsVoltage, 0, 0, 999.9},
    {"Heatsink temperature", "Temperatura do dissipador", "Temperatura del disipador", "DirectF1", "°C",
     kHeatsinkTemperature, 0, 0, 200},
    {"Motor temperature", "Temperatura do motor", "Temperatura del motor", "DirectF1", "°C", kMotorTemperature, 0, 0,
     250},
    {"Motor torque", "Torque do motor", "Par del motor", "PercentageF1", "%", kTorque, 0, -250, 250},
    {"Output power", "Potência de saída", "Potencia de salida", "PowerF1", "kW", kPower, 0, -3200, 3200},
    {"Power factor", "Fator de potência", "Factor de potencia", "DividedBy100F2", "", kPowerFactor, 0, 0, 100},
    {"Digital inputs", "Entradas digitais DI1 a DI8", "Entradas digitales DI1 a DI8", "DI1DI8", "", kDigitalInputs, 0,
     0, 255},
    {"Digital outputs", "Saídas RL1, RL2, RL3, DO1, DO2", "Salidas RL1, RL2, RL3, DO1, DO2", "RL1RL2RL3DO1DO2", "",
     kDigitalOutputs, 0, 0, 31},
    {"Last fault", "Último erro", "Último error", "DirectF0", "", kSetting, 5, 0, 99},
    {"Second fault", "Segundo erro", "Segundo error", "DirectF0", "", kSetting, 2, 0, 99},
    {"Third fault", "Terceiro erro", "Tercer error", "DirectF0", "", kSetting, 13107, 0, 99},
    {"Fourth fault", "Quarto erro", "Cuarto error", "DirectF0", "", kSetting, 13107, 0, 99},
    {"Analog input AI1", "Entrada analógica AI1", "Entrada analógica AI1", "PercentageF1", "%", kReferencePercent, 0,
     -100, 100},
    {"Analog input AI2", "Entrada analógica AI2", "Entrada analógica AI2", "PercentageF1", "%", kProcess, 0, -100, 100},
    {"Software version", "Versão de software", "Versión de software", "DividedBy100F2", "", kSetting, 240, 0, 999},
    {"Process variable", "Variável de processo", "Variable de proceso", "PercentageF1", "%", kProcess, 0, 0, 100},
    {"Powered hours", "Horas energizado", "Horas energizado", "TimeF1", "h", kHours, 0, 0, 65530},
    {"Energy", "Energia", "Energía", "DirectF1", "kWh", kEnergy, 0, 0, 65535},
    {"Armature voltage", "Tensão de armadura", "Tensión de armadura", "VoltageF0", "V", kOutputVoltage, 0, -600, 600},
    {"Armature current", "Corrente de armadura", "Corriente de armadura", "CurrentF1", "A", kCurrent, 0, -1000, 1000},
    {"Field current", "Corrente de campo", "Corriente de campo", "CurrentF2", "A", kSetting, 1.85, 0, 30},
    {"Position", "Posição", "Posición", "GainF3", "rev", kPosition, 0, -32768, 32767},
    {"Acceleration time", "Tempo de aceleração", "Tiempo de aceleración", "TimeF1", "s", kSetting, 5, 0, 999},
    {"Deceleration time", "Tempo de desaceleração", "Tiempo de desaceleración", "TimeF1", "s", kSetting, 4, 0, 999},
    {"Second acceleration time", "Segundo tempo de aceleração", "Segundo tiempo de aceleración", "TimeF1", "s",
     kSetting, 10, 0, 999},
    {"Second deceleration time", "Segundo tempo de desaceleração", "Segundo tiempo de desaceleración", "TimeF1", "s",
     kSetting, 8, 0, 999},
    {"S ramp", "Rampa S", "Rampa S", "PercentageF0", "%", kSetting, 50, 0, 100},
    {"Parameter lock", "Bloqueio de parâmetros", "Bloqueo de parámetros", "DirectF0", "", kSetting, 5, 0, 999},
    {"Minimum speed", "Velocidade mínima", "Velocidad mínima", "DirectF0", "rpm", kSetting, 90, 0, 9999},
    {"Maximum speed", "Velocidade máxima", "Velocidad máxima", "DirectF0", "rpm", kSetting, 1800, 0, 9999},
    {"Minimum frequency", "Frequência mínima", "Frecuencia mínima", "FrequencyF1", "Hz", kSetting, 3, 0, 300},
    {"Maximum frequency", "Frequência máxima", "Frecuencia máxima", "FrequencyF1", "Hz", kSetting, 60, 0, 300},
    {"Jog speed", "Velocidade de JOG", "Velocidad de JOG", "DirectF0", "rpm", kSetting, 150, 0, 9999},
    {"Preset speed 1", "Velocidade predefinida 1", "Velocidad predefinida 1", "DirectF0", "rpm", kSetting, 300, 0,
     9999},
    {"Preset speed 2", "Velocidade predefinida 2", "Velocidad predefinida 2", "DirectF0", "rpm", kSetting, 600, 0,
     9999},
    {"Preset speed 3", "Velocidade predefinida 3", "Velocidad predefinida 3", "DirectF0", "rpm", kSetting, 900, 0,
     9999},
    {"Preset speed 4", "Velocidade predefinida 4", "Velocidad predefinida 4", "DirectF0", "rpm", kSetting, 1200, 0,
     9999},
    {"Torque boost", "Reforço de torque", "Refuerzo de par", "PercentageF1", "%", kSetting, 2.5, 0, 30},
    {"Slip compensation", "Compensação de escorregamento", "Compensación de deslizamiento", "PercentageF1", "%",
     kSetting, 3.2, -10, 10},
    {"Proportional gain", "Ganho proporcional", "Ganancia proporcional", "GainF2", "", kSetting, 7.4, 0, 63.99},
    {"Integral gain", "Ganho integral", "Ganancia integral", "GainF3", "", kSetting, 0.023, 0, 9.999},
    {"Differential gain", "Ganho diferencial", "Ganancia diferencial", "GainF2", "", kSetting, 0, 0, 7.99},
    {"Current limit", "Limite de corrente", "Límite de corriente", "PercentageF0", "%", kSetting, 150, 0, 250},
    {"Overload current", "Corrente de sobrecarga", "Corriente de sobrecarga", "CurrentF1", "A", kSetting, 26.4, 0,
     2600},
    {"Braking level", "Nível de frenagem", "Nivel de frenado", "VoltageF0", "V", kSetting, 748, 325, 1200},
    {"Automatic reset time", "Tempo de autorreset", "Tiempo de autorreset", "TimeF0", "s", kSetting, 0, 0, 255},
    {"Speed scale", "Fator de escala da velocidade", "Factor de escala de la velocidad", "DirectF0", "", kSetting, 1800,
     1, 18000},
    {"Speed per hertz", "Rotação por hertz", "Rotación por hertz", "DirectF0", "rpm/Hz", kSetting, 30, 1, 120},
    {"Decimals of the speed", "Casas decimais da velocidade", "Decimales de la velocidad", "DirectF0", "", kSetting, 1,
     0, 3},
    {"Decimals of the process variable", "Casas decimais da variável de processo",
     "Decimales de la variable de proceso", "DirectF0", "", kSetting, 2, 0, 3},
    {"Resolution of the gains", "Resolução dos ganhos", "Resolución de las ganancias", "DirectF0", "", kSetting, 0, 0,
     1},
    {"Speed regulator gain", "Ganho do regulador de velocidade", "Ganancia del regulador de velocidad", "DividedBy10F1",
     "", kSetting, 125, 0, 999},
    {"Current regulator gain", "Ganho do regulador de corrente", "Ganancia del regulador de corriente", "DividedBy10F1",
     "", kSetting, 82, 0, 999},
    {"Local reference selection", "Seleção da referência local", "Selección de la referencia local", "DirectF0", "",
     kSetting, 0, 0, 10},
    {"Remote reference selection", "Seleção da referência remota", "Selección de la referencia remota", "DirectF0", "",
     kSetting, 1, 0, 10},
    {"AI1 gain", "Ganho da entrada AI1", "Ganancia de la entrada AI1", "GainF3", "", kSetting, 1, 0, 9.999},
    {"AI1 offset", "Offset da entrada AI1", "Offset de la entrada AI1", "PercentageF1", "%", kSetting, 0, -100, 100},
    {"AI2 gain", "Ganho da entrada AI2", "Ganancia de la entrada AI2", "GainF3", "", kSetting, 1, 0, 9.999},
    {"AO1 function", "Função da saída AO1", "Función de la salida AO1", "DirectF0", "", kSetting, 2, 0, 12},
    {"AO1 gain", "Ganho da saída AO1", "Ganancia de la salida AO1", "GainF3", "", kSetting, 1, 0, 9.999},
    {"DI1 function", "Função da entrada DI1", "Función de la entrada DI1", "DirectF0", "", kSetting, 1, 0, 20},
    {"DI2 function", "Função da entrada DI2", "Función de la entrada DI2", "DirectF0", "", kSetting, 0, 0, 20},
    {"DI3 function", "Função da entrada DI3", "Función de la entrada DI3", "DirectF0", "", kSetting, 3, 0, 20},
    {"DI4 function", "Função da entrada DI4", "Función de la entrada DI4", "DirectF0", "", kSetting, 4, 0, 20},
    {"Relay RL1 function", "Função do relé RL1", "Función del relé RL1", "DirectF0", "", kSetting, 13, 0, 26},
    {"Relay RL2 function", "Função do relé RL2", "Función del relé RL2", "DirectF0", "", kSetting, 2, 0, 26},
    {"Rated current", "Corrente nominal", "Corriente nominal", "CurrentF1", "A", kSetting, 24, 0, 2600},
    {"Rated voltage", "Tensão nominal", "Tensión nominal", "VoltageF0", "V", kSetting, 380, 220, 690},
    {"Switching frequency", "Frequência de chaveamento", "Frecuencia de conmutación", "DividedBy10F1", "kHz", kSetting,
     50, 12, 100},
    {"Serial address", "Endereço serial", "Dirección serial", "DirectF0", "", kSetting, 1, 1, 30},
    {"Serial watchdog", "Vigilância da comunicação serial", "Vigilancia de la comunicación serial", "TimeF1", "s",
     kSetting, 0, 0, 999},
    {"Motor rated voltage", "Tensão nominal do motor", "Tensión nominal del motor", "VoltageF0", "V", kSetting, 380, 0,
     690},
    {"Motor rated current", "Corrente nominal do motor", "Corriente nominal del motor", "CurrentF1", "A", kSetting, 22,
     0, 2600},
    {"Motor rated speed", "Rotação nominal do motor", "Velocidad nominal del motor", "DirectF0", "rpm", kSetting, 1750,
     0, 18000},
    {"Motor rated frequency", "Frequência nominal do motor", "Frecuencia nominal del motor", "FrequencyF0", "Hz",
     kSetting, 60, 0, 300},
    {"Motor rated power", "Potência nominal do motor", "Potencia nominal del motor", "PowerF1", "kW", kSetting, 11, 0,
     1600},
    {"Stator resistance", "Resistência do estator", "Resistencia del estator", "DividedBy1000F3", "ohm", kSetting, 412,
     0, 99999},
    {"Process set-point", "Setpoint do processo", "Setpoint del proceso", "PercentageF1", "%", kSetting, 60, 0, 100},
    {"Starting voltage", "Tensão inicial de partida", "Tensión inicial de arranque", "PercentageF0", "%", kSetting, 30,
     25, 90},
    {"Starting time", "Tempo de partida", "Tiempo de arranque", "TimeF0", "s", kSetting, 8, 1, 240},
    {"Stopping time", "Tempo de parada", "Tiempo de parada", "TimeF0", "s", kSetting, 5, 0, 240},
    {"Kick start time", "Tempo do pulso de partida", "Tiempo del pulso de arranque", "TimeF1", "s", kSetting, 0, 0, 2},
    {"Undercurrent level", "Nível de subcorrente", "Nivel de subcorriente", "PercentageF0", "%", kSetting, 20, 0, 99},
    {"Phase sequence check", "Verificação da sequência de fases", "Verificación de la secuencia de fases", "DirectF0",
     "", kSetting, 1, 0, 1},
    {"Bypass contactor", "Contator de bypass", "Contactor de bypass", "DirectF0", "", kSetting, 1, 0, 1},
    {"Encoder pulses", "Pulsos do encoder", "Pulsos del encoder", "DirectF0", "", kSetting, 1024, 100, 9999},
    {"Test word 1", "Palavra de teste 1", "Palabra de prueba 1", "DirectF0", "", kSetting, 4660, 0, 65535},
    {"Test word 2", "Palavra de teste 2", "Palabra de prueba 2", "DirectF0", "", kSetting, 22136, 0, 65535},
});

// As many parameters on a line as it holds, which the formatter would not keep.
// clang-format off
constexpr auto kKra09 = std::to_array<SimulatedParameter>({
    {1, "Speed reference", "DependsOnP210"}, {2, "Motor speed", "DependsOnP210"}, {3, "Motor current"},
    {4, "DC link voltage"}, {5, "Motor frequency"}, {6, "Drive status"}, {7, "Output voltage"},
    {8, "Heatsink temperature"}, {9, "Motor torque"}, {10, "Output power"}, {12, "Digital inputs"},
    {13, "Digital outputs"}, {14, "Last fault"}, {15, "Second fault"}, {16, "Third fault"}, {17, "Fourth fault"},
    {18, "Analog input AI1"}, {19, "Analog input AI2"}, {23, "Software version"},
    {40, "Process variable", "DependsOnP529"}, {42, "Powered hours"}, {44, "Energy"}, {46, "Motor temperature"},
    {100, "Acceleration time"}, {101, "Deceleration time"}, {102, "Second acceleration time"},
    {103, "Second deceleration time"}, {104, "S ramp"}, {122, "Jog speed"}, {124, "Preset speed 1"},
    {125, "Preset speed 2"}, {126, "Preset speed 3"}, {127, "Preset speed 4"}, {133, "Minimum speed"},
    {134, "Maximum speed"}, {136, "Torque boost"}, {138, "Slip compensation"}, {151, "Braking level"},
    {156, "Overload current"}, {161, "Proportional gain"}, {162, "Integral gain"}, {163, "Differential gain"},
    {169, "Current limit"}, {206, "Automatic reset time"}, {208, "Speed scale"}, {210, "Decimals of the speed"},
    {221, "Local reference selection"}, {222, "Remote reference selection"}, {234, "AI1 gain"}, {236, "AI1 offset"},
    {251, "AO1 function"}, {252, "AO1 gain"}, {263, "DI1 function"}, {264, "DI2 function"}, {277, "Relay RL1 function"},
    {279, "Relay RL2 function"}, {295, "Rated current"}, {296, "Rated voltage"}, {297, "Switching frequency"},
    {308, "Serial address"}, {314, "Serial watchdog"}, {400, "Motor rated voltage"}, {401, "Motor rated current"},
    {402, "Motor rated speed"}, {403, "Motor rated frequency"}, {404, "Motor rated power"}, {409, "Stator resistance"},
    {525, "Process set-point"}, {529, "Decimals of the process variable"}, {990, "Test word 1"}, {991, "Test word 2"}});

constexpr auto kKra08 = std::to_array<SimulatedParameter>({
    {1, "Speed reference"}, {2, "Motor speed"}, {3, "Motor current"}, {4, "DC link voltage"}, {5, "Motor frequency"},
    {6, "Drive status"}, {7, "Output voltage"}, {8, "Heatsink temperature"}, {9, "Motor torque"}, {10, "Output power"},
    {14, "Last fault"}, {15, "Second fault"}, {18, "Analog input AI1"}, {23, "Software version"}, {42, "Powered hours"},
    {100, "Acceleration time"}, {101, "Deceleration time"}, {102, "Second acceleration time"},
    {103, "Second deceleration time"}, {104, "S ramp"}, {122, "Jog speed"}, {124, "Preset speed 1"},
    {125, "Preset speed 2"}, {126, "Preset speed 3"}, {127, "Preset speed 4"}, {133, "Minimum frequency"},
    {134, "Maximum frequency"}, {136, "Torque boost"}, {138, "Slip compensation"}, {151, "Braking level"},
    {156, "Overload current"}, {169, "Current limit"}, {206, "Automatic reset time"}, {208, "Speed per hertz"},
    {221, "Local reference selection"}, {222, "Remote reference selection"}, {234, "AI1 gain"}, {236, "AI1 offset"},
    {263, "DI1 function"}, {264, "DI2 function"}, {265, "DI3 function"}, {266, "DI4 function"},
    {277, "Relay RL1 function"}, {295, "Rated current"}, {297, "Switching frequency"}, {308, "Serial address"},
    {314, "Serial watchdog"}, {401, "Motor rated current"}});

constexpr auto kLmx01 = std::to_array<SimulatedParameter>({
    {1, "Speed reference"}, {2, "Motor speed"}, {3, "Motor current"}, {4, "DC link voltage"}, {5, "Motor frequency"},
    {6, "Drive status"}, {7, "Output voltage"}, {8, "Heatsink temperature"}, {9, "Motor torque"}, {10, "Output power"},
    {14, "Last fault"}, {15, "Second fault"}, {16, "Third fault"}, {18, "Analog input AI1"}, {23, "Software version"},
    {36, "Process variable"}, {42, "Powered hours"}, {43, "Energy"}, {100, "Acceleration time"},
    {101, "Deceleration time"}, {102, "Second acceleration time"}, {103, "Second deceleration time"}, {104, "S ramp"},
    {122, "Jog speed"}, {124, "Preset speed 1"}, {125, "Preset speed 2"}, {126, "Preset speed 3"},
    {133, "Minimum frequency"}, {134, "Maximum frequency"}, {136, "Torque boost"}, {138, "Slip compensation"},
    {156, "Overload current"}, {169, "Current limit"}, {200, "Parameter lock"}, {206, "Automatic reset time"},
    {221, "Local reference selection"}, {222, "Remote reference selection"}, {234, "AI1 gain"}, {236, "AI1 offset"},
    {263, "DI1 function"}, {264, "DI2 function"}, {277, "Relay RL1 function"}, {295, "Rated current"},
    {297, "Switching frequency"}, {308, "Serial address"}, {401, "Motor rated current"}, {520, "Proportional gain"},
    {521, "Integral gain"}, {525, "Process set-point"}});

constexpr auto kKrd04 = std::to_array<SimulatedParameter>({
    {1, "Speed reference"}, {2, "Motor speed"}, {3, "Armature current"}, {4, "Armature voltage"}, {5, "Field current"},
    {6, "Drive status"}, {7, "Mains voltage"}, {8, "Heatsink temperature"}, {9, "Motor torque"}, {10, "Output power"},
    {11, "Speed in percent"}, {12, "Current in percent"}, {14, "Resolution of the gains"}, {15, "Analog input AI1"},
    {16, "Analog input AI2"}, {18, "Last fault"}, {19, "Second fault"}, {20, "Third fault"}, {23, "Software version"},
    {24, "Powered hours"}, {25, "Motor temperature"}, {26, "Energy"}, {30, "Acceleration time"},
    {31, "Deceleration time"}, {32, "Speed regulator gain"}, {33, "Current regulator gain"}, {34, "Integral gain"},
    {35, "Differential gain"}, {36, "Current limit"}, {40, "Minimum speed"}, {41, "Maximum speed"}, {42, "Jog speed"},
    {43, "Preset speed 1"}, {44, "Preset speed 2"}, {45, "Preset speed 3"}, {50, "AI1 gain"}, {51, "AI1 offset"},
    {52, "AI2 gain"}, {53, "AO1 function"}, {54, "AO1 gain"}, {60, "DI1 function"}, {61, "DI2 function"},
    {62, "Relay RL1 function"}, {63, "Relay RL2 function"}, {70, "Rated current"}, {71, "Rated voltage"},
    {72, "Motor rated current"}, {73, "Motor rated speed"}, {74, "Encoder pulses"}, {80, "Serial address"},
    {81, "Parameter lock"}});

constexpr auto kTsr05 = std::to_array<SimulatedParameter>({
    {1, "Current in percent"}, {2, "Motor current"}, {3, "Mains voltage"}, {4, "Output voltage"}, {5, "Motor torque"},
    {6, "Drive status"}, {7, "Output power"}, {8, "Power factor"}, {9, "Heatsink temperature"},
    {10, "Motor temperature"}, {11, "Powered hours"}, {12, "Energy"}, {13, "Motor speed"}, {14, "Last fault"},
    {15, "Second fault"}, {16, "Third fault"}, {17, "Fourth fault"}, {23, "Software version"}, {50, "Process variable"},
    {101, "Starting voltage"}, {102, "Starting time"}, {103, "Kick start time"}, {104, "Stopping time"},
    {105, "Current limit"}, {106, "Undercurrent level"}, {107, "Overload current"}, {108, "Phase sequence check"},
    {109, "Bypass contactor"}, {110, "Automatic reset time"}, {200, "Parameter lock"}, {201, "DI1 function"},
    {202, "DI2 function"}, {203, "DI3 function"}, {204, "Relay RL1 function"}, {205, "Relay RL2 function"},
    {206, "AO1 function"}, {207, "AO1 gain"}, {300, "Rated current"}, {301, "Rated voltage"}, {308, "Serial address"},
    {314, "Serial watchdog"}, {400, "Motor rated voltage"}, {401, "Motor rated current"}, {402, "Motor rated speed"},
    {404, "Motor rated power"}});

constexpr auto kPve05 = std::to_array<SimulatedParameter>({
    {1, "Motor speed (13 bits)"}, {2, "Motor speed"}, {3, "Motor current"}, {4, "DC link voltage"}, {5, "Position"},
    {6, "Drive status"}, {7, "Output voltage"}, {8, "Heatsink temperature"}, {9, "Motor torque"}, {10, "Output power"},
    {11, "Speed in percent"}, {12, "Current in percent"}, {14, "Last fault"}, {15, "Second fault"}, {16, "Third fault"},
    {18, "Analog input AI1"}, {23, "Software version"}, {24, "Powered hours"}, {25, "Motor temperature"},
    {26, "Speed reference"}, {100, "Acceleration time"}, {101, "Deceleration time"}, {102, "Second acceleration time"},
    {103, "Second deceleration time"}, {104, "S ramp"}, {121, "Maximum speed"}, {122, "Jog speed"},
    {124, "Preset speed 1"}, {125, "Preset speed 2"}, {126, "Preset speed 3"}, {159, "Proportional gain"},
    {160, "Differential gain"}, {161, "Speed regulator gain"}, {162, "Integral gain"}, {163, "Current regulator gain"},
    {169, "Current limit"}, {200, "Parameter lock"}, {232, "AI1 gain"}, {234, "AI1 offset"}, {235, "AI2 gain"},
    {251, "AO1 function"}, {252, "AO1 gain"}, {263, "DI1 function"}, {264, "DI2 function"}, {265, "DI3 function"},
    {277, "Relay RL1 function"}, {295, "Rated current"}, {297, "Switching frequency"}, {308, "Serial address"},
    {314, "Serial watchdog"}, {401, "Motor rated current"}, {402, "Motor rated speed"}, {405, "Encoder pulses"}});

// clang-format on

constexpr bool HasKind(const SimulatedParameter& parameter) {
  return std::ranges::any_of(kKinds, [&](const ParameterKind& kind) { return kind.english == parameter.kind; });
}
static_assert(std::ranges::all_of(kKra09, HasKind));
static_assert(std::ranges::all_of(kKra08, HasKind));
static_assert(std::ranges::all_of(kLmx01, HasKind));
static_assert(std::ranges::all_of(kKrd04, HasKind));
static_assert(std::ranges::all_of(kTsr05, HasKind));
static_assert(std::ranges::all_of(kPve05, HasKind));

}  // namespace

const ParameterKind* FindParameterKind(std::string_view english) noexcept {
  const auto* const found = std::ranges::find(kKinds, english, &ParameterKind::english);
  return found == kKinds.end() ? nullptr : found;
}

std::span<const SimulatedParameter> SimulatedParameters(std::string_view model) noexcept {
  if (model == "KRA-09") return kKra09;
  if (model == "KRA-08") return kKra08;
  if (model == "LMX-01") return kLmx01;
  if (model == "KRD-04") return kKrd04;
  if (model == "TSR-05") return kTsr05;
  if (model == "PVE-05") return kPve05;
  return {};
}

std::string_view UnitOf(const SimulatedParameter& parameter, const ParameterKind& kind) noexcept {
  return parameter.unit.empty() ? kind.unit : parameter.unit;
}

}  // namespace chartproject
