// chartproject: records and shows trend data of industrial drives.
#include <iostream>

#include "host/program.h"

int main(int argc, char** argv) {
  return chartproject::RunProgram(argc, argv, std::cout, std::cerr);
}
