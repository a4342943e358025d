#include "host/writers/formats.h"

#include <algorithm>
#include <filesystem>

#include "host/base/pemo.h"
#include "host/writers/common/names.h"
#include "host/writers/dbml/dbml_writer.h"
#include "host/writers/dot/dot_writer.h"
#include "host/writers/json/json_writer.h"
#include "host/writers/markdown/markdown_writer.h"
#include "host/writers/mermaid/mermaid_writer.h"
#include "host/writers/model_outputs.h"
#include "host/writers/sql/sql_writer.h"

namespace {

constexpr VornModelFormat kFormats[] = {
    {"json", ".json", "", "the whole model, lossless; two versions can be compared line by line",
     writeModelAsJson},
    {"sql", ".sql", "", "the statements that create its database, in seven dialects", writeModelAsSql},
    {"dbml", ".dbml", "", "DBML: tables, keys and references, for tools that draw diagrams",
     writeModelAsDbml},
    {"mermaid", ".mmd", ".mermaid", "a Mermaid diagram, which many sites draw where Markdown is shown",
     writeModelAsMermaid},
    {"dot", ".dot", ".gv", "a diagram that Graphviz draws", writeModelAsDot},
    {"markdown", ".md", ".markdown", "a data dictionary to read", writeModelAsMarkdown},
};

bool hasExtension(const VornModelFormat& format, std::string_view extension) {
  return !extension.empty() && (extension == format.extension || extension == format.otherExtension);
}

}  // namespace

std::span<const VornModelFormat> getModelFormats() {
  return kFormats;
}

const VornModelFormat& getModelFormat(const VornModelOutput& output) {
  const std::string_view name = output.format.name.view();
  const std::string extension = foldCase(std::filesystem::path(output.path).extension().string());
  const auto* const found =
      std::find_if(std::begin(kFormats), std::end(kFormats), [&](const VornModelFormat& format) {
        return name.empty() ? hasExtension(format, extension) : name == format.name;
      });
  if (found == std::end(kFormats)) {
    const std::string all = join(kFormats, ", ", &VornModelFormat::name);
    PEMO::UNKNOWN_OUTPUT_FORMAT.throwException({VornString(output.path), VornString(all)});
  }
  return *found;
}
