// A drive by libmodbus' own server. Usage: modbus_slave PORT ADDRESS: register r holds 1000 times the address plus r.
#include <modbus.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>

int main(int count, char** arguments) {
  if (count != 3) return 2;
  constexpr int kRegisters = 1000;
  const int address = std::atoi(arguments[2]);
  const std::unique_ptr<modbus_t, decltype(&modbus_free)> line(modbus_new_rtu(arguments[1], 38400, 'N', 8, 1),
                                                               modbus_free);
  const std::unique_ptr<modbus_mapping_t, decltype(&modbus_mapping_free)> registers(
      modbus_mapping_new(0, 0, kRegisters, 0), modbus_mapping_free);
  if (!line || !registers || modbus_set_slave(line.get(), address) != 0 || modbus_connect(line.get()) != 0) {
    std::cerr << modbus_strerror(errno) << std::endl;
    return 1;
  }
  for (int i = 0; i < kRegisters; ++i) {
    registers->tab_registers[i] = static_cast<std::uint16_t>(1000 * address + i);
  }
  std::array<std::uint8_t, MODBUS_RTU_MAX_ADU_LENGTH> request{};
  while (true) {  // until it is killed
    const int length = modbus_receive(line.get(), request.data());
    if (length > 0) (void)modbus_reply(line.get(), request.data(), length, registers.get());
    if (length < 0 && errno == EIO) return 0;  // the line is gone
  }
}
