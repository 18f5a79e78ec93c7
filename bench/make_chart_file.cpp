// Writes a long chart file. Usage: make_chart_file FILE POINTS
// Four series of a drive at work: speed, current, power and temperature; about 25 bytes a point.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

namespace {

void AppendRow(std::string& rows, long point) {
  const double load = std::sin(static_cast<double>(point) / 5000) + 0.2 * std::sin(static_cast<double>(point) / 37);
  char text[80];
  std::snprintf(text, sizeof(text), "%02ld:%02ld:%02ld#%ld#%.1f#%d#%ld##\r\n", point / 3600 % 24, point / 60 % 60,
                point % 60, point % 1000, 4 + load, static_cast<int>(60 + 20 * load), 40 + point / 1000 % 50);
  rows += text;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: make_chart_file FILE POINTS\n";
    return 2;
  }
  const long points = std::strtol(argv[2], nullptr, 10);
  std::ofstream file(argv[1], std::ios::binary);
  file << "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=4\r\nPXXX1=002\r\nPXXX2=003\r\nPXXX3=004\r\n"
          "PXXX4=005\r\nScan Time=1\r\nUnit=s\r\nNumber of Points="
       << points
       << "\r\nTrigger Mode=Manual\r\nEvent=\r\nPXXX=\r\nContent=\r\nStart Date=01/02/2026\r\nStart Time=00:00:01\r\n"
          "End Date=01/02/2026\r\nEnd Time=00:00:00\r\n\r\n[TIME/CONTENT]\r\n";
  std::string rows;
  for (long point = 1; point <= points; ++point) {
    AppendRow(rows, point);
    if (rows.size() < std::size_t{1024} * 1024 && point != points) continue;
    file << rows;
    rows.clear();
  }
  return file.flush() ? 0 : 1;
}
