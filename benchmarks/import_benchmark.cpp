// import-benchmark: the stages of an import, each timed on the same export.
//
//   scan      every record read and every field cut, nothing made
//   loading   the sections read into parsed elements and registries, then released
//   import    the whole import through the loaded plug-in, with its JSON saved
//
// The export is made anew: of --megabytes, or of what VORN_BENCHMARK_MEGABYTES says, or of 50.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>

#include "bridge/import/import.h"
#include "bridge/pipeline/sections.h"
#include "export_generator.h"
#include "export_scan.h"
#include "host/base/exception.h"
#include "host/metamodel/store_model.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"
#include "host/writers/model_outputs.h"
#include "peak_memory.h"

namespace {

// Drops the messages. An import that warns is not the one to measure.
class SilentLog final : public VornLog {
 public:
  void expectNoWarnings() const {
    if (getCount(VornSeverity::warning) > 0) {
      throw std::runtime_error("the import warns of the export");
    }
  }

 private:
  void put(VornSeverity /*severity*/, const VornString& /*code*/, const VornString& /*text*/) override {}
};

// A folder for the export and what is made of it; gone at the end.
class TemporaryFolder {
 public:
  TemporaryFolder()
      : path_(std::filesystem::temp_directory_path() / ("vorn-benchmark-" + std::to_string(getpid()))) {
    std::filesystem::create_directory(path_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string file(const char* name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

void makeExport(const std::string& path, double megabytes) {
  ExportShape shape;
  shape.tables = tablesForSize(static_cast<std::size_t>(std::llround(megabytes * 1e6)), shape);
  std::ofstream file(path, std::ios::binary);
  writeExport(file, shape);
  if (!file.flush()) {
    throw std::runtime_error("cannot write " + path);
  }
}

void scan(const std::string& exportPath) {
  SilentLog log;
  benchmark::DoNotOptimize(scanExport(exportPath.c_str(), log));
  log.expectNoWarnings();
}

// What a run does up to and including the last section, and the release at its end.
void load(const std::string& exportPath) {
  using namespace silrdm;
  SilentLog log;
  VornStoreModel model;
  const auto import = std::make_unique<Import>(ImportOptions{}, log, model, nameOfSection);
  import->reader.open(exportPath.c_str(), false);
  import->designPackage = &model.addDesignPackage(std::make_unique<VornDesignPackage>());
  auto diagram = std::make_unique<VornClassDiagram>();
  import->mainDiagram = diagram.get();
  import->designPackage->addDiagram(std::move(diagram));
  for (const Section& section : kSections) {
    import->reader.beginSection(section.position);
    section.read(*import);
  }
  log.expectNoWarnings();
}

void import(const std::string& exportPath, const std::string& outputPath) {
  SilentLog log;
  const VornBridgeLibrary library(VORN_PLUGIN);
  VornOptionList options;
  library.getInterface().getOptionList(options);
  options.get("File")->setValue(exportPath.c_str());
  VornModelOutputs outputs({{outputPath}});
  library.getInterface().run("SilverrunRdm262Import", outputs.getFile(), options, log);
  log.expectNoWarnings();
}

void addBenchmark(const char* name, const std::string& exportPath, const std::function<void()>& work) {
  const auto bytes = static_cast<double>(std::filesystem::file_size(exportPath));
  const double memory = static_cast<double>(measurePeakMemory(work)) / bytes;
  benchmark::RegisterBenchmark(
      name,
      [=](benchmark::State& state) {
        for ([[maybe_unused]] auto round : state) {
          work();
        }
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
        state.counters["memory/byte"] = memory;
      })
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
}

int run(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  double megabytes = 50;
  CLI::App app{"Times the stages of an import. Takes the options of Google Benchmark too.",
               "import-benchmark"};
  app.add_option("--megabytes", megabytes, "size of the export, in millions of bytes")
      ->envname("VORN_BENCHMARK_MEGABYTES")
      ->check(CLI::Range(0.01, 4000.0));
  CLI11_PARSE(app, argc, argv);

  const TemporaryFolder folder;
  const std::string exportPath = folder.file("big.txt");
  // In a process of its own, which takes along what it has allocated: the measuring below wants a small one.
  measurePeakMemory([&] { makeExport(exportPath, megabytes); });
  addBenchmark("scan", exportPath, [=] { scan(exportPath); });
  addBenchmark("loading", exportPath, [=] { load(exportPath); });
  addBenchmark("import", exportPath, [=, json = folder.file("big.json")] { import(exportPath, json); });
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& problem) {
    std::cerr << "import-benchmark: " << problem.what() << '\n';
  }
  return 1;
}
