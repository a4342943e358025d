// Mutates exports by what they are made of, so that most stay exports whose records refer to each other:
// bytes changed anywhere rarely get past the reader.
#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support.h"
#include "targets.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using Record = std::vector<std::string>;
using Section = std::vector<Record>;
using Export = std::vector<Section>;

// What refers to what: a field of a section to field 2 of another.
struct Reference {
  std::size_t section;
  std::size_t field;
  std::size_t target;
};
constexpr Reference kReferences[] = {
    {4, 1, 53},  {4, 3, 60},  {7, 1, 53},   {7, 3, 60},  {7, 9, 29},  {7, 9, 14},  {11, 1, 53},
    {11, 3, 60}, {11, 7, 11}, {11, 10, 28}, {12, 1, 53}, {12, 3, 7},  {12, 4, 11}, {12, 7, 12},
    {14, 4, 29}, {17, 1, 53}, {24, 3, 64},  {28, 1, 53}, {28, 5, 17}, {28, 8, 60}, {28, 9, 28},
    {28, 10, 4}, {29, 3, 64}, {29, 6, 24},  {53, 5, 64}, {60, 1, 53}, {60, 3, 65}};
constexpr std::size_t kIdentifier = 2;

// Fields with words or numbers of their own, by section.
constexpr std::pair<std::size_t, std::size_t> kWordFields[] = {
    {4, 11},  {7, 5},   {7, 29},  {7, 31},  {11, 5},  {11, 6},  {12, 6},  {12, 10}, {14, 12}, {24, 4},
    {24, 10}, {28, 15}, {28, 21}, {28, 25}, {28, 27}, {29, 23}, {60, 65}, {64, 3},  {64, 4}};
constexpr const char* kWords[] = {
    "",       "Y",   "N",       "0",           "1",           "2",       "-1",       "99999999999",
    "A",      "A-Z", "IDC",     "OTC",         "FKEY",        "CASCADE", "RESTRICT", "SET NULL",
    "Oracle", "8.1", "DB2/UDB", "VARCHAR(20)", "NUMBER(8,2)", "INTEGER", "\2a\rb\3", "\xE9\x80\xC3"};

template <class Visit>
void split(const std::string& text, char separator, const Visit& visit) {
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    visit(text.substr(start, end - start));
    start = end + 1;
  }
}

Export parse(const std::string& bytes) {
  Export sections;
  split(bytes, '\x1C', [&](const std::string& section) {
    split(section, '\r', [&records = sections.emplace_back()](const std::string& record) {
      split(record, '\t',
            [&fields = records.emplace_back()](const std::string& text) { fields.push_back(text); });
    });
  });
  return sections;
}

// What `parse` makes of the text is the export again.
std::string unparse(const Export& sections) {
  std::string text;
  for (const Section& section : sections) {
    for (const Record& record : section) {
      for (const std::string& field : record) {
        text += field + '\t';
      }
      text.back() = '\r';
    }
    text.back() = '\x1C';
  }
  text.pop_back();
  return text;
}

class Mutator {
 public:
  Mutator(const std::string& bytes, unsigned seed) : export_(parse(bytes)), random_(seed) {}

  std::string mutate() {
    constexpr void (Mutator::*kSteps[])() = {&Mutator::refer,  &Mutator::refer,  &Mutator::setWord,
                                             &Mutator::repeat, &Mutator::remove, &Mutator::changeBytes};
    for (std::size_t count = 1 + pick(4); count > 0; --count) {
      (this->*kSteps[pick(std::size(kSteps))])();
    }
    return unparse(export_);
  }

 private:
  std::size_t pick(std::size_t count) { return random_() % count; }
  template <class List>
  auto& pickOf(List& list) {
    return list[pick(std::size(list))];
  }

  Section& section(std::size_t number) {
    export_.resize(std::max(export_.size(), number), Section(1, Record(1)));
    return export_[number - 1];
  }
  static std::string& field(Record& record, std::size_t number) {
    record.resize(std::max(record.size(), number));
    return record[number - 1];
  }
  // One of the sections that are read.
  Section& pickSection() { return section(pickOf(kReferences).section); }
  Record& pickRecord() { return pickOf(pickSection()); }

  void refer() {
    const Reference& reference = pickOf(kReferences);
    const std::string identifier = field(pickOf(section(reference.target)), kIdentifier);
    field(pickOf(section(reference.section)), reference.field) = pick(8) == 0 ? "" : identifier;
  }
  void setWord() {
    const auto [number, place] = pickOf(kWordFields);
    field(pickOf(section(number)), place) = pickOf(kWords);
  }
  // A record once more, or very often, or under another identifier.
  void repeat() {
    Section& records = pickSection();
    Record copy = pickOf(records);
    if (pick(2) == 0) {
      field(copy, kIdentifier) = std::to_string(pick(100));
    }
    records.insert(records.begin() + static_cast<std::ptrdiff_t>(pick(records.size() + 1)),
                   pick(16) == 0 ? 1 + pick(40) : 1, copy);
  }
  void remove() {
    Section& records = pickSection();
    records.erase(records.begin() + static_cast<std::ptrdiff_t>(pick(records.size())));
    if (records.empty()) {
      records.emplace_back(1);
    }
  }
  void changeBytes() {
    constexpr std::size_t kMost = 64;
    std::string& text = pickOf(pickRecord());
    const std::size_t room = text.size() + kMost;
    std::size_t size = text.size();
    text.resize(room);
    size = LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), size, room);
    text.resize(size);
  }

  Export export_;
  std::minstd_rand random_;
};

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  constexpr unsigned kOfTheHead = 16;  // one in so many changes the choices
  if (size <= kImportHead || maxSize <= kImportHead) {
    return LLVMFuzzerMutate(data, size, maxSize);
  }
  if (seed % kOfTheHead == 0) {
    LLVMFuzzerMutate(data, kImportHead, kImportHead);
    return size;
  }
  const std::string bytes(reinterpret_cast<const char*>(data) + kImportHead, size - kImportHead);
  const std::string mutated = Mutator(bytes, seed).mutate().substr(0, maxSize - kImportHead);
  std::memcpy(data + kImportHead, mutated.data(), mutated.size());
  return kImportHead + mutated.size();
}
