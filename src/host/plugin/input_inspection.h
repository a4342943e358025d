// VornInputInspection: what a bridge knows about damaged inputs. A plug-in object may offer it beside the
// import; a host asks for it with dynamic_cast.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Why an input should not be imported unchanged.
struct VornInputFinding {
  std::string problem;        // a sentence: "Records in 'x.txt' end with LF instead of CR."; empty: none
  std::string nextStep;       // what its owner can do, a sentence; empty where it is to be repaired
  bool isRepairable = false;  // `repair` probably makes a sound copy
};

// Looks at one input, block by block, before it is imported. Cheap enough to be used for every import.
class VornInputInspector {
 public:
  VornInputInspector() = default;
  VornInputInspector(const VornInputInspector&) = delete;
  VornInputInspector& operator=(const VornInputInspector&) = delete;
  virtual ~VornInputInspector();

  // Takes the next bytes of the input; blocks may have any size.
  virtual void look(std::string_view bytes) = 0;
  // To be called once, after the last block. `name` is what the problem calls the input.
  virtual VornInputFinding finish(const std::string& name) = 0;
};

// A copy of an input without its damage.
struct VornRepairedInput {
  std::string bytes;
  std::vector<std::string> steps;  // what was done, a sentence each, with its count; empty: nothing
  std::string obstacle;            // why no sound copy can be made, a sentence; then `bytes` are of no use
};

class VornInputInspection {
 public:
  virtual ~VornInputInspection();

  virtual std::unique_ptr<VornInputInspector> makeInspector() = 0;
  // Repairs what can be repaired without guessing. A sound input and the result of a repair are returned
  // unchanged. Obstacles refer to the input as `name`.
  virtual VornRepairedInput repair(std::string bytes, const std::string& name) = 0;

 protected:
  VornInputInspection() = default;
  VornInputInspection(const VornInputInspection&) = default;
  VornInputInspection& operator=(const VornInputInspection&) = default;
};
