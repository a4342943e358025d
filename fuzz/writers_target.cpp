#include <vector>

#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/metamodel/verify.h"
#include "host/std/output_format.h"
#include "saved_outputs.h"
#include "support.h"
#include "targets.h"

namespace {

// What means something in one format or another.
constexpr std::string_view kHostile[] = {"'",  "\"",    "]",  "`",  "```", "\'\'\'", "--",
                                         "\n", "\r\n;", "/*", "*/", "\\",  "<b>",    "</",
                                         "|",  "{",     "}",  "(",  ")",   "%%",     "&#"};

// Builds a model of everything that writers name, a few of each: its texts and what is tied to what are as
// the bytes tell. What `make` makes is owned at once.
class ModelBuilder {
 public:
  ModelBuilder(VornStoreModel& model, Bytes& bytes) : model_(model), bytes_(bytes) {}

  void build() {
    constexpr const char* kStores[] = {"", "ORACLE", "MICROSOFT_SQL_SERVER", "DB2_UDB"};
    describe(model_);
    model_.dataStoreName = bytes_.choose(kStores);
    model_.addDesignPackage(package_ = new VornDesignPackage);
    repeat(0, [&] { model_.addDataPackage(schemas_.emplace_back(make<VornDatabaseSchema>())); });
    repeat(1, [&] { addType(); });
    repeat(1, [&] { addTable(); });
    repeat(0, [&] { addForeignKey(*bytes_.choose(tables_)); });
    repeat(0, [&] { addView(); });
    repeat(0, [&] { addRelationships(); });
  }

 private:
  bool flip() { return bytes_.take() % 2 == 1; }

  template <class Action>
  void repeat(int least, const Action& action) {
    for (int count = least + bytes_.take() % 4; count > 0; --count) {
      action();
    }
  }

  // A new text, often hostile, or one from before: names that clash are of interest.
  VornString takeText() {
    const std::uint8_t choice = bytes_.take();
    if (choice < 64 && !texts_.empty()) {
      return texts_[choice % texts_.size()];
    }
    const std::string hostile(choice < 160 ? kHostile[choice % std::size(kHostile)] : "");
    return texts_.emplace_back(hostile + std::string(bytes_.takeText()));
  }

  template <class Object>
  Object* make() {
    auto* object = new Object;
    describe(*object);
    return object;
  }
  void describe(VornModelObject& object) {
    object.setName(takeText());
    object.setPhysicalName(takeText());
    object.description = takeText();
  }

  template <class Element>
  Element* addElement() {
    auto* element = make<Element>();
    package_->addNamespaceElementUniqueName(element, '_');
    if (!schemas_.empty() && flip()) {
      bytes_.choose(schemas_)->addImportedNamespaceElement(element);
    }
    return element;
  }

  void addType() {
    auto* type = make<VornDerivedType>();
    model_.addType(types_.emplace_back(type));
    type->dataType = takeText();
    type->length = bytes_.take();
  }

  void addTable() {
    auto* table = tables_.emplace_back(addElement<VornClass>());
    sources_.push_back(table);
    table->addSynonym(make<VornSynonym>());
    repeat(0, [&] {
      auto* column = make<VornAttribute>();
      table->addFeatureUniqueName(column, '_');
      column->optional = flip();
      column->addType(bytes_.choose(types_));
    });
    repeat(0, [&] {
      auto* key = keys_.emplace_back(make<VornCandidateKey>());
      fillKey(*key, *table);
      table->addPrimaryCandidateKey(key);
    });
  }

  void fillKey(VornKey& key, VornClass& table) {
    table.addKey(&key);
    auto* index = make<VornIndex>();
    table.addIndex(index);
    repeat(0, [&] {
      if (table.getAttributeCount() > 0) {
        VornAttribute* column = table.getAttribute(bytes_.take() % table.getAttributeCount());
        key.addAttribute(column);
        auto* member = new VornIndexMember;
        index->addIndexMember(member);
        column->addIndexMember(member);
      }
    });
    if (flip()) {
      index->addKey(&key);
    }
  }

  void addForeignKey(VornClass& table) {
    auto* key = make<VornForeignKey>();
    fillKey(*key, table);
    if (!keys_.empty()) {
      key->addCandidateKey(bytes_.choose(keys_));
    }
  }

  void addView() {
    auto* view = addElement<VornSQLViewEntity>();
    view->viewStatement = takeText();
    view->addSourceElement(bytes_.choose(sources_));
    sources_.push_back(view);
  }

  void addRelationships() {
    auto* association = addElement<VornAssociation>();
    auto* generalization = addElement<VornGeneralization>();
    for (const auto kind : {VornGeneralizationRole::Kind::supertype, VornGeneralizationRole::Kind::subtype}) {
      auto* role = make<VornAssociationRole>();
      association->addAssociationRole(role);
      role->multiplicity = takeText();
      role->addAssociatedClass(bytes_.choose(tables_));
      generalization->addRole(kind, bytes_.choose(tables_));
    }
  }

  VornStoreModel& model_;
  Bytes& bytes_;
  VornDesignPackage* package_ = nullptr;
  std::vector<VornString> texts_;
  std::vector<VornDatabaseSchema*> schemas_;
  std::vector<VornDerivedType*> types_;
  std::vector<VornClass*> tables_;
  std::vector<VornClassifier*> sources_;
  std::vector<VornCandidateKey*> keys_;
};

}  // namespace

void fuzzWriters(Bytes input) {
  const VornOutputFormat format = takeFormat(input);
  VornStoreModel model;
  ModelBuilder(model, input).build();
  for (const std::string& problem : verifyModel(model)) {
    require(false, "the model does not hang together", problem);
  }
  checkEveryOutput(model, format);
}
