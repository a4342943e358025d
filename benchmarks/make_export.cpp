// make-export: writes an export of any size, for measuring.
#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>

#include "export_generator.h"

namespace {

int makeExport(int argc, char** argv) {
  ExportShape shape;
  double megabytes = 0;
  std::string path = "-";
  CLI::App app{"Writes an export of any size. The same arguments give the same bytes.", "make-export"};
  auto* tables = app.add_option("--tables", shape.tables, "number of tables")
                     ->check(CLI::Range(1, 4'000'000))
                     ->capture_default_str();
  app.add_option("--columns", shape.columns, "average number of columns a table")
      ->check(CLI::Range(2.0, 5000.0))
      ->capture_default_str();
  app.add_option("--seed", shape.seed, "another seed gives another model")->capture_default_str();
  app.add_flag("--varied", shape.varied, "keys of any type, relationships with any action");
  app.add_option("--megabytes", megabytes,
                 "size of the export, about, in millions of bytes, in place of --tables")
      ->check(CLI::Range(0.01, 4000.0))
      ->excludes(tables);
  app.add_option("-o,--output", path, "file to write, - for standard output")->capture_default_str();
  CLI11_PARSE(app, argc, argv);

  if (megabytes > 0) {
    shape.tables = tablesForSize(static_cast<std::size_t>(std::llround(megabytes * 1e6)), shape);
  }
  std::ofstream file;
  if (path != "-") {
    file.open(path, std::ios::binary);
  }
  std::ostream& out = path == "-" ? std::cout : file;
  writeExport(out, shape);
  if (!out.flush()) {
    std::cerr << "make-export: cannot write " << path << '\n';
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return makeExport(argc, argv);
  } catch (const std::exception& problem) {
    std::cerr << "make-export: " << problem.what() << '\n';
    return 1;
  }
}
