#include "assembly/number_by_sequence.h"
#include "assembly/passes.h"
#include "elements/registries.h"
#include "host/metamodel/classifier.h"

namespace silrdm {

void orderAttributes() {
  for (const VornClass* table : entityRegistry) {
    std::vector<VornAttribute*> columns(table->getAttributeCount());
    for (std::size_t number = 0; number < columns.size(); ++number) {
      columns[number] = table->getAttribute(number);
    }
    numberBySequence<SILRDMAttribute>(std::move(columns));
  }
}

}  // namespace silrdm
