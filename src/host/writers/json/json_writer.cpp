#include "host/writers/json/json_writer.h"

#include <algorithm>
#include <atomic>
#include <span>
#include <string>
#include <vector>

#include "host/base/log.h"
#include "host/base/output_file.h"
#include "host/base/pemo.h"
#include "host/base/unicode.h"
#include "host/metamodel/casting.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/writers/common/relational_model.h"
#include "host/writers/json/model_ids.h"
#include "host/writers/json/ordered_pieces.h"
#include "host/writers/json/pretty_json.h"

namespace {

std::string_view getActionName(VornReferentialActionType::Value action) {
  switch (action) {
    case VornReferentialActionType::unspecified:
      return "unspecified";
    case VornReferentialActionType::none:
      return "none";
    case VornReferentialActionType::cascade:
      return "cascade";
    case VornReferentialActionType::restrict:
      return "restrict";
    case VornReferentialActionType::setNull:
      return "setNull";
    case VornReferentialActionType::setDefault:
      return "setDefault";
  }
  return "";
}

// Some hundred kilobytes of text.
constexpr std::size_t kPieceElements = 64;

// Fewer are written sooner than a thread is made.
constexpr std::size_t kManyElements = 4 * kPieceElements;

class ModelWriter {
 public:
  ModelWriter(VornStoreModel& model, VornOutputFile& file)
      : model_(model), ids_(model), file_(file), json_(file) {}
  // Continues at the position of `other`, in another output.
  ModelWriter(const ModelWriter& other, VornOutput& output)
      : model_(other.model_), ids_(other.ids_), file_(other.file_), json_(other.json_, output) {}

  void writeModel() {
    json_.startObject();
    text("format", std::string_view("vorn-store-model"));
    number("formatVersion", 1);
    nameAndDescription(model_);
    text("dataStoreVersionName", model_.dataStoreVersionName);
    dataStore();
    list("metadataOrigins", model_.metadataOriginCollection, &ModelWriter::metadataOrigin);
    list("types", model_.typeCollection, &ModelWriter::type);
    list("designPackages", model_.designPackageCollection, &ModelWriter::designPackage);
    list("dataPackages", model_.dataPackageCollection, &ModelWriter::dataPackage);
    json_.endObject();
    file_.put('\n');
  }

  // How many texts were not UTF-8.
  int getForeignTexts() const { return foreignTexts_; }

 private:
  // Values by key.
  void value(const VornString& text) {
    const std::string_view bytes = text.view();
    if (PrettyJson::isPlain(bytes)) {
      json_.plainString(bytes);
      return;
    }
    const std::string_view written = asUtf8(bytes, buffer_);
    foreignTexts_ += static_cast<int>(written.data() != bytes.data());
    json_.string(written);
  }
  void text(std::string_view name, std::string_view words) {
    json_.key(name);
    json_.string(words);
  }
  void text(std::string_view name, const VornString& words) {
    json_.key(name);
    value(words);
  }
  void number(std::string_view name, int amount) {
    json_.key(name);
    json_.number(amount);
  }
  void flag(std::string_view name, bool set) {
    json_.key(name);
    json_.flag(set);
  }

  // References.
  void id(const VornObject* object) {
    if (object == nullptr) {
      json_.null();
      return;
    }
    buffer_.clear();
    if (ids_.append(buffer_, *object)) {
      json_.plainString(buffer_);
    } else {
      json_.string(buffer_);
    }
  }
  void reference(std::string_view name, const VornObject* object) {
    json_.key(name);
    id(object);
  }
  template <class Objects>
  void references(std::string_view name, const Objects& objects) {
    json_.key(name);
    json_.startArray();
    for (const VornObject* object : objects) {
      id(object);
    }
    json_.endArray();
  }

  // An array of objects, each opened here and filled by `fill`.
  template <class Objects, class Fill>
  void list(std::string_view name, const Objects& objects, Fill fill) {
    json_.key(name);
    json_.startArray();
    for (const auto* object : objects) {
      item(*object, fill);
    }
    json_.endArray();
  }
  void item(const auto& object, auto fill) {
    json_.startObject();
    (this->*fill)(object);
    json_.endObject();
  }

  void names(const VornModelObject& object) {
    text("name", object.getName());
    text("physicalName", object.physicalName);
  }
  void nameAndDescription(const VornModelObject& object) {
    names(object);
    text("description", object.description);
  }
  void element(const VornModelObject& object) {
    reference("id", &object);
    text("elementType", getElementTypeName(object.getElementType()));
    nameAndDescription(object);
  }

  void dataStore() {
    json_.key("dataStore");
    if (model_.dataStoreName.empty()) {
      json_.null();
      return;
    }
    json_.startObject();
    text("name", model_.dataStoreName);
    text("version", model_.dataStoreVersion);
    json_.endObject();
  }

  void metadataOrigin(const VornMetadataOrigin& origin) {
    text("formatName", origin.formatName);
    number("originCode", origin.originCode);
    text("sourcePath", origin.sourcePath);
    text("bridge", origin.bridge);
    text("identifier", origin.identifier);
    text("buildVersion", origin.buildVersion);
  }

  void type(const VornType& type) {
    const auto* derived = dyn_cast<VornDerivedType>(&type);
    if (derived == nullptr) {
      reference("id", &type);
      text("elementType", getElementTypeName(type.getElementType()));
      text("name", type.getName());
      return;
    }
    element(type);
    text("dataType", derived->dataType);
    number("length", derived->length);
    number("scale", derived->scale);
    text("domainText1", derived->domainText1);
    text("domainText2", derived->domainText2);
    text("domainText3", derived->domainText3);
    flag("userDomain", derived->userDomain);
    reference("derivedFrom", derived->derivedFrom);
  }

  void designPackage(const VornDesignPackage& package) {
    reference("id", &package);
    text("name", package.getName());
    packageElements(package.elementCollection);
    list("diagrams", package.diagramCollection, &ModelWriter::diagram);
  }

  void diagram(const VornDiagram& diagram) {
    text("name", diagram.getName());
    references("modelElements", diagram.modelElementCollection);
  }

  void dataPackage(const VornDataPackage& package) {
    element(package);
    references("importedElements", package.importedElementCollection);
  }

  void packageElements(const VornOwned<VornNamespaceElement>& elements) {
    if (elements.count() < kManyElements) {
      list("elements", elements, &ModelWriter::packageElement);
      return;
    }
    json_.key("elements");
    json_.startArray();
    // What stands in front of the first is not what stands in front of the others.
    const std::span<const VornLinkEntry> entries = elements.getCollection()->getEntries();
    const auto first = std::ranges::find_if(entries, &VornLinkEntry::object);
    packageElements(entries.subspan(static_cast<std::size_t>(first - entries.begin()), 1));
    packageElementsInPieces({first + 1, entries.end()});
    json_.endArray();
  }
  void packageElements(std::span<const VornLinkEntry> entries) {
    for (const VornLinkEntry& entry : entries) {
      if (entry.object != nullptr) {
        item(cast<VornNamespaceElement>(*entry.object), &ModelWriter::packageElement);
      }
    }
  }
  void packageElementsInPieces(std::span<const VornLinkEntry> entries) {
    std::atomic<int> foreignTexts = 0;
    const std::size_t pieces = (entries.size() + kPieceElements - 1) / kPieceElements;
    writeInPieces(file_, pieces, [&](PieceOutput& output) {
      ModelWriter writer(*this, output);
      while (const auto piece = output.next()) {
        const auto rest = entries.subspan(*piece * kPieceElements);
        writer.packageElements(rest.first(std::min(rest.size(), kPieceElements)));
      }
      foreignTexts += writer.foreignTexts_;
    });
    foreignTexts_ += foreignTexts;
  }

  void packageElement(const VornNamespaceElement& object) {
    element(object);
    switch (object.getElementType()) {
      case VornElementType::classType:
        table(cast<VornClass>(object));
        break;
      case VornElementType::sqlViewEntity:
        view(cast<VornSQLViewEntity>(object));
        break;
      case VornElementType::association:
        list("roles", cast<VornAssociation>(object).roleCollection, &ModelWriter::associationRole);
        break;
      case VornElementType::generalization:
        list("roles", cast<VornGeneralization>(object).roleCollection, &ModelWriter::generalizationRole);
        break;
      default:
        break;
    }
  }

  void table(const VornClass& table) {
    number("categoryType", table.categoryType);
    flag("classFlag", table.classFlag);
    list("synonyms", table.synonymCollection, &ModelWriter::synonym);
    list("attributes", getColumns(table), &ModelWriter::attribute);
    reference("primaryKey", table.primaryCandidateKey.get());
    list("keys", table.keyCollection, &ModelWriter::tableKey);
    list("indexes", table.indexCollection, &ModelWriter::index);
  }

  void synonym(const VornSynonym& synonym) {
    reference("id", &synonym);
    text("name", synonym.getName());
  }

  void view(const VornSQLViewEntity& view) {
    text("viewStatement", view.viewStatement);
    number("viewStatementType", view.viewStatementType);
    list("attributes", view.featureCollection, &ModelWriter::viewAttribute);
    references("sourceElements", view.sourceElementCollection);
  }

  void attribute(const VornAttribute& attribute) { feature(attribute, attribute.position); }
  void viewAttribute(const VornFeature& attribute) { feature(cast<VornStructuralFeature>(attribute), 0); }
  void feature(const VornStructuralFeature& feature, int position) {
    reference("id", &feature);
    nameAndDescription(feature);
    text("attributeText", feature.attributeText);
    flag("optional", feature.optional);
    number("position", position);
    reference("type", feature.type.get());
    json_.key("notes");
    json_.startArray();
    for (const VornNote* note : feature.noteCollection) {
      value(note->noteText);
    }
    json_.endArray();
  }

  void tableKey(const VornKey& tableKey) {
    element(tableKey);
    const auto* foreign = dyn_cast<VornForeignKey>(&tableKey);
    if (foreign == nullptr) {
      flag("identifierKey", cast<VornCandidateKey>(tableKey).identifierKey);
    }
    references("attributes", tableKey.attributeCollection);
    reference("index", tableKey.index.get());
    if (foreign != nullptr) {
      reference("candidateKey", foreign->candidateKey.get());
      reference("associationRole", foreign->associationRole.get());
      reference("generalizationRole", foreign->generalizationRole.get());
      list("roleNameMaps", foreign->roleNameMapCollection, &ModelWriter::roleNameMap);
    }
  }

  void roleNameMap(const VornAssociationRoleNameMap& map) {
    reference("sourceAttribute", map.sourceAttribute.get());
    reference("destinationAttribute", map.destinationAttribute.get());
  }

  void index(const VornIndex& index) {
    reference("id", &index);
    names(index);
    flag("unique", index.unique);
    list("members", getMembers(index), &ModelWriter::indexMember);
  }

  void indexMember(const VornIndexMember& member) {
    reference("attribute", member.attribute.get());
    text("sortOrder",
         std::string_view(member.sortOrder == VornSortOrderType::descending ? "descending" : "ascending"));
    number("position", member.position);
  }

  void associationRole(const VornAssociationRole& role) {
    reference("id", &role);
    nameAndDescription(role);
    text("multiplicity", role.multiplicity);
    flag("oneSide", role.oneSide);
    text("aggregation",
         std::string_view(role.aggregation == VornAggregationType::composite ? "composite" : "none"));
    text("referentialAction1", getActionName(role.referentialAction1));
    text("referentialAction2", getActionName(role.referentialAction2));
    text("referentialAction3", getActionName(role.referentialAction3));
    reference("class", role.associatedClass.get());
  }

  void generalizationRole(const VornGeneralizationRole& role) {
    reference("id", &role);
    text("kind",
         std::string_view(role.kind == VornGeneralizationRole::Kind::supertype ? "supertype" : "subtype"));
    reference("class", role.associatedClass.get());
  }

  VornStoreModel& model_;
  ModelIds ids_;
  VornOutputFile& file_;
  PrettyJson json_;
  std::string buffer_;
  int foreignTexts_ = 0;
};

}  // namespace

void writeModelAsJson(VornStoreModel& model, const VornOutputFormat& /*format*/, VornOutputFile& file,
                      VornLog& log) {
  ModelWriter writer(model, file);
  writer.writeModel();
  if (writer.getForeignTexts() > 0) {
    PEMO::TEXTS_NOT_UTF8.log(log, {VornString(writer.getForeignTexts())});
  }
}
