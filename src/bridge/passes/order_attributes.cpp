#include "bridge/import/import.h"
#include "bridge/passes/number_by_sequence.h"
#include "bridge/passes/passes.h"
#include "host/metamodel/classifier.h"

namespace silrdm {

void orderAttributes(Import& import) {
  for (const VornClass* table : import.entityRegistry) {
    std::vector<VornAttribute*> columns(table->getAttributeCount());
    for (std::size_t number = 0; number < columns.size(); ++number) {
      columns[number] = table->getAttribute(number);
    }
    numberBySequence<SILRDMAttribute>(std::move(columns));
  }
}

}  // namespace silrdm
