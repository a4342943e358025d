#include "host/writers/pretty_json.h"

#include <fstream>

#include "../../support.h"
#include "host/std/output_file.h"

namespace {

TEST(PrettyJson, IndentsWhatHoldsSomethingAndEscapesTexts) {
  const TempFolder folder;
  VornOutputFile file(folder.path("out.json"));
  PrettyJson json(file);
  json.startObject();
  for (const char* empty : {"none", "all"}) {
    json.key(empty);
    json.startObject();
    json.endObject();
  }
  json.key("texts");
  json.startArray();
  for (const char* text : {"", "plain ~", "\"\\/\b\f\n\r\t", "\x01\x1F", "é"}) {
    json.string(text);
  }
  json.startArray();
  json.number(-2147483647 - 1);
  json.flag(false);
  json.null();
  json.endArray();
  json.endArray();
  json.endObject();
  file.commit();
  std::ifstream written(folder.path("out.json"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(written), {}), R"({
  "none": {},
  "all": {},
  "texts": [
    "",
    "plain ~",
    "\"\\/\b\f\n\r\t",
    "\u0001\u001F",
    "é",
    [
      -2147483648,
      false,
      null
    ]
  ]
})");
}

}  // namespace
