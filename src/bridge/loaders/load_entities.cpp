#include <algorithm>

#include "bridge/elements/registries.h"
#include "bridge/loaders/loaders.h"
#include "bridge/messages/messages.h"
#include "bridge/reader/record.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/package.h"

namespace silrdm {

namespace {

enum class Field {
  schemaId = 1,
  identifier = 2,
  userId = 3,
  name = 4,
  synonym = 9,  // tables only
  physicalName = 15,
  description = 16,
  viewDefinition = 61,  // views only: three bytes, then the statement
  viewSwitch = 65,      // exactly "Y": a view; anything else: a table
  last = viewSwitch,
  width = 65,
};

// The names and references that tables and views have alike.
template <class Entity>
Parsed<Entity> makeEntity(const Record<Field>& record) {
  auto entity = makeParsed<Entity, SILRDMEntity>(record.text(Field::identifier));
  auto& element = *elementOf<SILRDMEntity>(*entity);
  element.schemaId = record.text(Field::schemaId);
  element.userId = record.text(Field::userId);
  entity->setName(record.text(Field::name));
  entity->setPhysicalName(record.text(Field::physicalName));
  entity->description = record.text(Field::description);
  return entity;
}

// Hands the entity to the package, shows it on the diagram and enters it in its registry.
template <class Entity, class Registry>
void place(Parsed<Entity> entity, Registry& registry) {
  addUniquelyNamed(*entity, [&] { designPackage->addNamespaceElementUniqueName(entity.get(), '/'); });
  Entity* placed = entity.release();
  mainDiagram->addModelElement(placed);
  registry.add(placed);
}

void loadView(const Record<Field>& record) {
  constexpr std::size_t kBytesBeforeStatement = 3;
  auto view = makeEntity<VornSQLViewEntity>(record);
  const std::string_view definition = record.text(Field::viewDefinition);
  view->viewStatement = VornString(definition.substr(std::min(kBytesBeforeStatement, definition.size())));
  VornViewStatementType::isValid(VornViewStatementType::definition);
  view->viewStatementType = VornViewStatementType::definition;
  place(std::move(view), viewRegistry);
}

void loadTable(const Record<Field>& record) {
  auto table = makeEntity<VornClass>(record);
  if (!record.isEmpty(Field::synonym)) {
    auto synonym = std::make_unique<VornSynonym>();
    synonym->setName(record.text(Field::synonym));
    table->addSynonym(synonym.get());
    synonym.release();
  }
  VornClassCategoryType::isValid(VornClassCategoryType::unspecified);
  table->categoryType = VornClassCategoryType::unspecified;
  table->classFlag = true;
  place(std::move(table), entityRegistry);
}

}  // namespace

void loadEntities() {
  KVB_SRRDM::SILRDM_I_CREATING_TABLES.log(*importLog);
  forEachRecord<Field>([](const Record<Field>& record) {
    if (record.is(Field::viewSwitch, "Y")) {
      loadView(record);
    } else {
      loadTable(record);
    }
  });
}

}  // namespace silrdm
