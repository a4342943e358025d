// scan-export: the bare scan of one export, as a program.
#include <exception>
#include <iostream>

#include "export_scan.h"
#include "host/base/log.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: scan-export EXPORT\n";
    return 2;
  }
  try {
    VornStreamLog log(std::cerr);
    const ExportScan scan = scanExport(argv[1], log);
    std::cout << scan.records << " records, " << scan.fields << " fields\n";
    return 0;
  } catch (const std::exception& problem) {
    std::cerr << "scan-export: " << problem.what() << '\n';
    return 1;
  }
}
