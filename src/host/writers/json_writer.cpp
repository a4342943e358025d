#include "host/writers/json_writer.h"

#include <rapidjson/prettywriter.h>

#include <algorithm>
#include <string>
#include <vector>

#include "host/constants/pemo.h"
#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"
#include "host/std/log.h"
#include "host/std/output_file.h"
#include "host/writers/model_ids.h"

namespace {

// What RapidJSON asks of the place it writes to.
class FileStream {
 public:
  using Ch = char;
  explicit FileStream(VornOutputFile& output) : file(output) {}
  void Put(char byte) { file.put(byte); }
  void Flush() {}

  VornOutputFile& file;
};

}  // namespace

// Where RapidJSON knows how many bytes come at most, it asks for room once.
namespace rapidjson {

template <>
inline void PutReserve(FileStream& stream, std::size_t count) {
  stream.file.reserve(count);
}
template <>
inline void PutUnsafe(FileStream& stream, char c) {
  stream.file.putReserved(c);
}
template <>
inline void PutN(FileStream& stream, char c, std::size_t n) {
  stream.file.fill(c, n);
}

}  // namespace rapidjson

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

// The members in the order of their positions; equal positions keep the collection's order.
template <class T>
std::vector<const T*> byPosition(const auto& members) {
  std::vector<const T*> sorted;
  for (const auto* member : members) {
    sorted.push_back(static_cast<const T*>(member));
  }
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const T* a, const T* b) { return a->position < b->position; });
  return sorted;
}

class ModelWriter {
 public:
  ModelWriter(VornStoreModel& model, VornOutputFile& file)
      : model_(model), ids_(model), stream_(file), json_(stream_) {
    json_.SetIndent(' ', 2);
  }

  void writeModel() {
    json_.StartObject();
    text("format", std::string_view("vorn-store-model"));
    number("formatVersion", 1);
    nameAndDescription(model_);
    text("dataStoreVersionName", model_.dataStoreVersionName);
    dataStore();
    list("metadataOrigins", model_.metadataOriginCollection, &ModelWriter::metadataOrigin);
    list("types", model_.typeCollection, &ModelWriter::type);
    list("designPackages", model_.designPackageCollection, &ModelWriter::designPackage);
    list("dataPackages", model_.dataPackageCollection, &ModelWriter::dataPackage);
    json_.EndObject();
    stream_.Put('\n');
  }

  // How many texts were not UTF-8.
  int getForeignTexts() const { return foreignTexts_; }

 private:
  // Values by key.
  void key(std::string_view name) { json_.Key(name.data(), static_cast<rapidjson::SizeType>(name.size())); }
  void string(std::string_view value) {
    json_.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
  }
  void value(const VornString& text) {
    const std::string_view written = toJsonText(text.view(), buffer_);
    foreignTexts_ += static_cast<int>(written.data() != text.view().data());
    string(written);
  }
  void text(std::string_view name, std::string_view words) {
    key(name);
    string(words);
  }
  void text(std::string_view name, const VornString& words) {
    key(name);
    value(words);
  }
  void number(std::string_view name, int amount) {
    key(name);
    json_.Int(amount);
  }
  void flag(std::string_view name, bool set) {
    key(name);
    json_.Bool(set);
  }

  // References.
  void id(const VornObject* object) {
    if (object == nullptr) {
      json_.Null();
      return;
    }
    buffer_.clear();
    ids_.append(buffer_, *object);
    string(buffer_);
  }
  void reference(std::string_view name, const VornObject* object) {
    key(name);
    id(object);
  }
  template <class Objects>
  void references(std::string_view name, const Objects& objects) {
    key(name);
    json_.StartArray();
    for (const VornObject* object : objects) {
      id(object);
    }
    json_.EndArray();
  }

  // An array of objects, each opened here and filled by `fill`.
  template <class Objects, class Fill>
  void list(std::string_view name, const Objects& objects, Fill fill) {
    key(name);
    json_.StartArray();
    for (const auto* object : objects) {
      json_.StartObject();
      (this->*fill)(*object);
      json_.EndObject();
    }
    json_.EndArray();
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
    key("dataStore");
    if (model_.dataStoreName.empty()) {
      json_.Null();
      return;
    }
    json_.StartObject();
    text("name", model_.dataStoreName);
    text("version", model_.dataStoreVersion);
    json_.EndObject();
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
    const auto* derived = dynamic_cast<const VornDerivedType*>(&type);
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
    list("elements", package.elementCollection, &ModelWriter::packageElement);
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

  void packageElement(const VornNamespaceElement& object) {
    element(object);
    switch (object.getElementType()) {
      case VornElementType::classType:
        table(static_cast<const VornClass&>(object));
        break;
      case VornElementType::sqlViewEntity:
        view(static_cast<const VornSQLViewEntity&>(object));
        break;
      case VornElementType::association:
        list("roles", static_cast<const VornAssociation&>(object).roleCollection,
             &ModelWriter::associationRole);
        break;
      case VornElementType::generalization:
        list("roles", static_cast<const VornGeneralization&>(object).roleCollection,
             &ModelWriter::generalizationRole);
        break;
      default:
        break;
    }
  }

  void table(const VornClass& table) {
    number("categoryType", table.categoryType);
    flag("classFlag", table.classFlag);
    list("synonyms", table.synonymCollection, &ModelWriter::synonym);
    list("attributes", byPosition<VornAttribute>(table.featureCollection), &ModelWriter::attribute);
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
  void viewAttribute(const VornFeature& attribute) {
    feature(static_cast<const VornStructuralFeature&>(attribute), 0);
  }
  void feature(const VornStructuralFeature& feature, int position) {
    reference("id", &feature);
    nameAndDescription(feature);
    text("attributeText", feature.attributeText);
    flag("optional", feature.optional);
    number("position", position);
    reference("type", feature.type.get());
    key("notes");
    json_.StartArray();
    for (const VornNote* note : feature.noteCollection) {
      value(note->noteText);
    }
    json_.EndArray();
  }

  void tableKey(const VornKey& tableKey) {
    element(tableKey);
    const auto* foreign = dynamic_cast<const VornForeignKey*>(&tableKey);
    if (foreign == nullptr) {
      flag("identifierKey", static_cast<const VornCandidateKey&>(tableKey).identifierKey);
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
    list("members", byPosition<VornIndexMember>(index.indexMemberCollection), &ModelWriter::indexMember);
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
  FileStream stream_;
  rapidjson::PrettyWriter<FileStream> json_;
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
