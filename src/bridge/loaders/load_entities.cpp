#include <algorithm>

#include "bridge/loaders/load_records.h"
#include "bridge/messages/messages.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/package.h"

namespace silrdm {

namespace {

constexpr auto kLayout =
    recordLayout(65,  //
                 field(1, "schemaId", &SILRDMEntity::schemaId), field(2, "identifier"),
                 field(3, "userId", &SILRDMEntity::userId),                         //
                 field(4, "name", &VornModelObject::setName), field(9, "synonym"),  // tables only
                 field(15, "physicalName", &VornModelObject::physicalName),
                 field(16, "description", &VornModelObject::description),
                 field(61, "viewDefinition"),  // views only: three bytes, then the statement
                 field(65, "viewSwitch"));     // exactly "Y": a view; anything else: a table

// Adds the entity to its registry, the package and the diagram.
template <class Entity>
void place(Import& import, Parsed<Entity> parsed, SILObjectRegistry<Entity>& registry) {
  Entity& entity = registry.add(std::move(parsed));
  addUniquelyNamed(import.reporter, entity,
                   [&] { import.designPackage->addNamespaceElementUniqueName(&entity, '/'); });
  import.mainDiagram->addModelElement(&entity);
}

void loadView(Import& import, const Record<kLayout>& record) {
  constexpr std::size_t kBytesBeforeStatement = 3;
  auto view = makeParsed<VornSQLViewEntity, SILRDMEntity>(record);
  const std::string_view definition = record.text("viewDefinition");
  view->viewStatement = VornString(definition.substr(std::min(kBytesBeforeStatement, definition.size())));
  VornViewStatementType::isValid(VornViewStatementType::definition);
  view->viewStatementType = VornViewStatementType::definition;
  place(import, std::move(view), import.viewRegistry);
}

void loadTable(Import& import, const Record<kLayout>& record) {
  auto table = makeParsed<VornClass, SILRDMEntity>(record);
  if (!record.isEmpty("synonym")) {
    auto synonym = std::make_unique<VornSynonym>();
    synonym->setName(record.text("synonym"));
    table->addSynonym(std::move(synonym));
  }
  VornClassCategoryType::isValid(VornClassCategoryType::unspecified);
  table->categoryType = VornClassCategoryType::unspecified;
  table->classFlag = true;
  place(import, std::move(table), import.entityRegistry);
}

}  // namespace

const RecordFields kEntityFields = kLayout.getFields();

void loadEntities(Import& import) {
  KVB_SRRDM::SILRDM_I_CREATING_TABLES.log(import.log);
  forEachRecord<kLayout>(import.reader, [&import](const Record<kLayout>& record) {
    if (record.is("viewSwitch", "Y")) {
      loadView(import, record);
    } else {
      loadTable(import, record);
    }
  });
}

}  // namespace silrdm
