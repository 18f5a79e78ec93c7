// The 303 texts. Pieces that are joined with values keep the blanks at their ends in every language.
#include "common/texts/message_table.h"

#include <array>

#include "common/environment/environment.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr int kResourceNotFound = 326;

struct MessageRow {
  int k;
  std::string_view portuguese;
  std::string_view english;
  std::string_view spanish;
};

/// A text that is the same in all languages: units and names of parameters.
constexpr MessageRow Same(int k, std::string_view text) {
  return {k, text, text, text};
}

constexpr std::array<MessageRow, kMessageCount> kMessages{{
    {0, "Digite o nome do arquivo:", "Enter file name:", "Introduzca el nombre del archivo:"},
    {1, "Arquivo de gráfico", "Chart File", "Archivo de gráfico"},
    {2, "Adquirindo dados ...", "Acquiring data ...", "Adquiriendo datos ..."},
    {3, "Endereço do drive", "Drive Address", "Dirección del drive"},
    {4, "Parâmetros", "Parameters", "Parámetros"},
    {5, "Nome do arquivo", "File Name", "Nombre del archivo"},
    {6, "Número de pontos", "Number of Points", "Número de puntos"},
    {7, "Tempo entre pontos", "Time among Points", "Tiempo entre puntos"},
    {8, "&Limpar", "&Reset", "&Limpiar"},
    {9, "Apagar os campos", "Erase fields", "Borrar los campos"},
    {10, "&Ok", "&Ok", "&Aceptar"},
    {11, "Ok (Alt+O)", "Ok (Alt+O)", "Aceptar (Alt+A)"},
    {12, "&Cancelar", "&Cancel", "&Cancelar"},
    {13, "Cancelar (Alt+C)", "Cancel (Alt+C)", "Cancelar (Alt+C)"},
    {14, "Adquirir parâmetro", "Acquire Parameter", "Adquirir parámetro"},
    {15, "Ver gráfico", "View Chart", "Ver gráfico"},
    {16, "Pressione Esc para cancelar durante a aquisição", "Press Esc to cancel during the acquiring",
     "Pulse Esc para cancelar durante la adquisición"},
    {17, "Disparo", "Trigger", "Disparo"},
    {18, "O inversor está habilitado (RUN)", "Inverter is enabled (RUN)", "El inversor está habilitado (RUN)"},
    {19, "Evento", "Event", "Evento"},
    {20, "Manual", "Manual", "Manual"},
    {21, "Modo de disparo", "Trigger Mode", "Modo de disparo"},
    Same(22, "P012 - DI1 = 0"),
    Same(23, "P012 - DI1 = 1"),
    Same(24, "P012 - DI2 = 0"),
    Same(25, "P012 - DI2 = 1"),
    Same(26, "P012 - DI3 = 0"),
    Same(27, "P012 - DI3 = 1"),
    Same(28, "P012 - DI4 = 0"),
    Same(29, "P012 - DI4 = 1"),
    Same(30, "P012 - DI5 = 0"),
    Same(31, "P012 - DI5 = 1"),
    Same(32, "P012 - DI6 = 0"),
    Same(33, "P012 - DI6 = 1"),
    Same(34, "P012 - DI7 = 0"),
    Same(35, "P012 - DI7 = 1"),
    Same(36, "P012 - DI8 = 0"),
    Same(37, "P012 - DI8 = 1"),
    {38, "<PXXX> > Conteúdo", "<PXXX> > Content", "<PXXX> > Contenido"},
    {39, "<PXXX> < Conteúdo", "<PXXX> < Content", "<PXXX> < Contenido"},
    {40, "<PXXX> = Conteúdo", "<PXXX> = Content", "<PXXX> = Contenido"},
    {41, "<PXXX> >= Conteúdo", "<PXXX> >= Content", "<PXXX> >= Contenido"},
    {42, "<PXXX> <= Conteúdo", "<PXXX> <= Content", "<PXXX> <= Contenido"},
    {43, "Iniciar a aquisição de dados", "Start Data Acquisition", "Iniciar la adquisición de datos"},
    {44, "Parâmetro", "Parameter", "Parámetro"},
    {45, "Conteúdo", "Content", "Contenido"},
    {46, "Grade", "Grid", "Cuadrícula"},
    {47, "Número de parâmetros", "Number of Parameters", "Número de parámetros"},
    {48, "Erro de comunicação serial!", "Serial communication error !", "¡Error de comunicación serie!"},
    {49, "Continuar mesmo assim?", "Continue even so ?", "¿Continuar de todos modos?"},
    {50, "Data de início", "Start Date", "Fecha de inicio"},
    {51, "Data de término", "End Date", "Fecha de término"},
    {52, "Erro na linha ", "Line error ", "Error en la línea "},
    {53, "Salvando ...", "Saving ...", "Guardando ..."},
    Same(54, "HH:MM:SS"),
    {55, "Parâmetro/Conteúdo", "Parameter/Content", "Parámetro/Contenido"},
    {56, "Hora de início", "Start Time", "Hora de inicio"},
    {57, "Hora de término", "End Time", "Hora de término"},
    Same(58, "200 ... 65535 ms"),
    Same(59, "1 ... 65 s"),
    Same(60, "1 ... 2000000000"),
    {61, "O inversor está pronto (READY) para ser habilitado", "Inverter is READY to be enabled",
     "El inversor está listo (READY) para ser habilitado"},
    {62, "Tensão de alimentação muito baixa para a operação do inversor (Subtensão)",
     "Power supply voltage is too low for the inverter operation (Undervoltage)",
     "Tensión de alimentación demasiado baja para la operación del inversor (Subtensión)"},
    {63, "Aviso", "Warning", "Advertencia"},
    {64, "Evento não disponível", "Event not available", "Evento no disponible"},
    {65, "Valor fora da faixa!", "Value out of range !", "¡Valor fuera de rango!"},
    {66, "Imprimir", "Print", "Imprimir"},
    {67, "Imprimir o gráfico", "Print chart", "Imprimir el gráfico"},
    {68, "Imprimindo ...", "Printing ...", "Imprimiendo ..."},
    {69, "Atualizar gráfico", "Update Chart", "Actualizar gráfico"},
    {70, "Barras 3D", "3D Bar", "Barras 3D"},
    {71, "Barras 2D", "2D Bar", "Barras 2D"},
    {72, "Linhas 3D", "3D Line", "Líneas 3D"},
    {73, "Linhas 2D", "2D Line", "Líneas 2D"},
    {74, "Área 3D", "3D Area", "Área 3D"},
    {75, "Área 2D", "2D Area", "Área 2D"},
    {76, "Degraus 3D", "3D Step", "Escalones 3D"},
    {77, "Degraus 2D", "2D Step", "Escalones 2D"},
    {78, "Tipo de gráfico", "Chart Type", "Tipo de gráfico"},
    {79, "Escala 1...32767", "Scale 1...32767", "Escala 1...32767"},
    {80, "Marcador", "Marker", "Marcador"},
    {81, "Linha", "Line", "Línea"},
    {82, "Valor incorreto: use o formato hh:mm:ss", "Incorrect value: use format hh:mm:ss",
     "Valor incorrecto: use el formato hh:mm:ss"},
    {83, "Sim", "Yes", "Sí"},
    {84, "Não", "No", "No"},
    {85, "Procurar", "Browse", "Examinar"},
    {86, "Espaço em disco insuficiente: ", "Insufficient disk space: ", "Espacio en disco insuficiente: "},
    {87, ". Os pontos foram salvos no arquivo: ", ". Points were saved on file: ",
     ". Los puntos se guardaron en el archivo: "},
    {88, ". Espaço necessário: ", ". Required space: ", ". Espacio necesario: "},
    {89, "O arquivo ", "File ", "El archivo "},
    {90, " já existe! Deseja sobrescrevê-lo?", " already exists! Overwrite?", " ya existe. ¿Desea sobrescribirlo?"},
    {91, "Não foi possível encontrar o aplicativo Excel.", "Unable to find Excel application.",
     "No fue posible encontrar la aplicación Excel."},
    {92, "Deseja realmente exportar os pontos para o Excel?", "Do you really want to export the points to Excel?",
     "¿Desea realmente exportar los puntos a Excel?"},
    {93, "Esta operação pode levar vários minutos...", "This operation may take several minutes...",
     "Esta operación puede tardar varios minutos..."},
    {94, "O arquivo foi salvo como: ", "File was saved as: ", "El archivo se guardó como: "},
    {95, "Exportar", "Export", "Exportar"},
    {96, "Exportar os dados do gráfico para um arquivo do Excel", "Export graph data to an Excel file",
     "Exportar los datos del gráfico a un archivo de Excel"},
    {97, "Imprimir?", "Print ?", "¿Imprimir?"},
    {98, "Endereço ", "Address ", "Dirección "},
    {99, " não existe.", " does not exist.", " no existe."},
    {100, "Não foi possível carregar ", "It was not possible to load ", "No fue posible cargar "},
}};

constexpr bool InOrder() {
  for (int k = 0; k < kMessageCount; ++k) {
    if (kMessages[static_cast<std::size_t>(k)].k != k) return false;
  }
  return true;
}
static_assert(InOrder(), "every message stands at its own number");

}  // namespace

std::string_view StringById(int id) {
  const int k = id % 1000;
  if (id >= kPortugueseMessageBase && k < kMessageCount) {
    const MessageRow& row = kMessages[static_cast<std::size_t>(k)];
    switch (id / 1000) {
      case 1:
        return row.portuguese;
      case 2:
        return row.english;
      case 3:
        return row.spanish;
      default:
        break;
    }
  }
  throw RunTimeError(kResourceNotFound, "Resource with identifier " + std::to_string(id) + " not found");
}

std::string LoadMessage(const Environment& environment, int k) {
  return std::string(StringById(environment.languageBase + kPortugueseMessageBase + k));
}

}  // namespace chartproject
