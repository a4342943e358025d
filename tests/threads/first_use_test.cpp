// What is made by its first use, whichever thread that is: used for the first time by several at once. Each
// test is the only one of the process that uses its thing; the thread checker tells what one run shows, too.
// The program has the bridge's sources of the literals and of the target systems in itself, without those
// that use them before main.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

#include "bridge/messages/texts.h"
#include "bridge/target_systems/target_systems.h"
#include "host/plugin/bridge_library.h"
#include "host/plugin/dll_interface.h"

namespace {

constexpr int kThreads = 8;

// What `use` returns on each of several threads that call it as close to each other as can be.
template <class Use>
auto useAtOnce(Use use) {
  std::array<decltype(use()), kThreads> results{};
  std::latch start(kThreads);
  std::vector<std::jthread> threads;
  for (auto& result : results) {
    threads.emplace_back([&] {
      start.arrive_and_wait();
      result = use();
    });
  }
  threads.clear();  // waits for them
  return results;
}

template <class Results>
void expectOne(const Results& results) {
  EXPECT_NE(results.front(), nullptr);
  EXPECT_EQ(std::vector(results.begin(), results.end()), std::vector(kThreads, results.front()));
}

TEST(FirstUse, LiteralsAreMadeOnce) {
  expectOne(useAtOnce([] { return silrdm::findLiteral("bp_encoding_name"); }));
}

TEST(FirstUse, TheDefaultTargetSystemIsFoundOnce) {
  expectOne(useAtOnce([] { return &silrdm::defaultTargetSystem(); }));
}

TEST(FirstUse, ABridgeThatIsLoadedSeveralTimesHasOneObject) {
  const auto libraries = useAtOnce([] { return std::make_shared<VornBridgeLibrary>(VORN_PLUGIN); });
  std::array<VornImportBridgeDllInterface*, kThreads> objects{};
  std::transform(libraries.begin(), libraries.end(), objects.begin(),
                 [](const auto& library) { return &library->getInterface(); });
  expectOne(objects);
  const auto counts = useAtOnce([&] {
    VornOptionList options;
    objects.front()->getOptionList(options);
    return options.getCount();
  });
  EXPECT_EQ(std::vector(counts.begin(), counts.end()), std::vector<std::size_t>(kThreads, 5));
}

}  // namespace
