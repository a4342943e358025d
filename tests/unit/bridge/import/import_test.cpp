// What an import owns, wherever it ends: the memory checkers find what is destroyed twice or never.
#include "bridge/import/import.h"

#include "bridge/pipeline/passes.h"
#include "bridge/pipeline/sections.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"
#include "tests/support.h"

namespace silrdm {
namespace {

// Reads `sections` sections of an export and runs `passes` passes on them.
void importPartly(const std::string& path, std::size_t sections, std::size_t passes) {
  CountingLog log;
  VornStoreModel model;
  {
    Import import(ImportOptions{}, log, model, nameOfSection);
    import.designPackage = &model.addDesignPackage(std::make_unique<VornDesignPackage>());
    auto diagram = std::make_unique<VornClassDiagram>();
    import.mainDiagram = diagram.get();
    import.designPackage->addDiagram(std::move(diagram));
    import.reader.open(VornString(path), false);
    for (std::size_t i = 0; i < sections; ++i) {
      import.reader.beginSection(kSections[i].position);
      kSections[i].read(import);
    }
    for (std::size_t i = 0; i < passes; ++i) {
      kPasses[i].run(import);
    }
  }
  EXPECT_THAT(verifyModel(model), testing::IsEmpty()) << sections << " sections, " << passes << " passes";
}

TEST(Import, DestroysWhatItMadeAfterAnySectionAndAnyPass) {
  for (const char* name : {"harbour.txt", "museum-keys.txt"}) {
    const std::string path = std::string(VORN_EXAMPLES "/") + name;
    for (std::size_t sections = 0; sections < kSections.size(); ++sections) {
      importPartly(path, sections, 0);
    }
    for (std::size_t passes = 0; passes <= kPasses.size(); ++passes) {
      importPartly(path, kSections.size(), passes);
    }
  }
}

}  // namespace
}  // namespace silrdm
