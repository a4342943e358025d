// Runs every target on its seeds and on what fuzzing once found: replay-finds. With a folder, writes the
// seeds there instead, a folder a target: replay-finds FOLDER.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "case_file.h"
#include "support.h"
#include "targets.h"

namespace {

struct Seed {
  std::string target;
  std::string name;
  std::string bytes;
};

void addSeeds(std::vector<Seed>& seeds, const std::string& name, const std::string& bytes) {
  seeds.push_back({"import", name, std::string(kImportHead, '\0') + bytes});
  // With each capacity of a record; a bit for each section that is passed over.
  for (const char* head : {"\0\0", "\1\0", "\2\x55", "\3\xAA", "\4\xFF"}) {
    seeds.push_back({"field-reader", name + std::to_string(*head), std::string(head, 2) + bytes});
  }
  seeds.push_back({"inspection", name, '\1' + bytes});
  seeds.push_back({"repair", name, bytes});
  for (std::size_t i = bytes.find("SELECT"); i != std::string::npos; i = bytes.find("SELECT", i + 1)) {
    seeds.push_back(
        {"sql-reader", name + '-' + std::to_string(i), '\0' + bytes.substr(i, bytes.find('\3', i) - i)});
  }
}

// The exports of the acceptance cases and the examples, for the targets that take
// exports; the statements in them for the one that takes SQL.
std::vector<Seed> makeSeeds() {
  std::vector<Seed> seeds;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VORN_CASES)) {
    if (entry.is_regular_file()) {
      const auto& path = entry.path();
      addSeeds(seeds, path.parent_path().filename().string() + '-' + path.stem().string(),
               parseCase(path.string(), readAll(path.string())).exportBytes);
    }
  }
  for (const auto& entry : std::filesystem::directory_iterator(VORN_EXAMPLES)) {
    if (entry.path().extension() == ".txt") {
      addSeeds(seeds, entry.path().stem().string(), readAll(entry.path().string()));
    }
  }
  return seeds;
}

void writeSeeds(const std::filesystem::path& folder) {
  for (const Seed& seed : makeSeeds()) {
    std::filesystem::create_directories(folder / seed.target);
    std::ofstream(folder / seed.target / seed.name, std::ios::binary) << seed.bytes;
  }
}

// In a process of its own, which a find ends.
bool passes(const Seed& seed) {
  const pid_t child = ::fork();
  if (child == 0) {
    getFuzzTarget(seed.target).run(Bytes(seed.bytes));
    std::exit(0);  // leaks end it otherwise
  }
  int status = 1;
  ::waitpid(child, &status, 0);
  if (status != 0) {
    std::printf("FAILED: %s %s\n", seed.target.c_str(), seed.name.c_str());
  }
  return status == 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1) {
    writeSeeds(argv[1]);
    return 0;
  }
  const std::filesystem::path finds = VORN_FINDS;
  std::vector<Seed> inputs = makeSeeds();
  for (const FuzzTarget& target : getFuzzTargets()) {
    inputs.push_back({target.name, "nothing", ""});
    std::error_code none;  // of the targets without finds
    for (const auto& entry : std::filesystem::directory_iterator(finds / target.name, none)) {
      inputs.push_back({target.name, entry.path().string(), readAll(entry.path().string())});
    }
  }
  int passed = 0;
  int failed = 0;
  for (const Seed& input : inputs) {
    std::fflush(stdout);
    ++(passes(input) ? passed : failed);
  }
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0 ? 0 : 1;
}
