#include "host/services/view_sources.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>

#include "host/base/log.h"
#include "host/base/unicode.h"
#include "host/metamodel/casting.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"
#include "host/sql/sql_sources.h"

namespace {

// The first two tables and views of one name: the second is what a view with that name means by it.
struct Holders {
  VornClassifier* first = nullptr;
  VornClassifier* second = nullptr;

  void add(VornClassifier& classifier) {
    if (first == nullptr) {
      first = &classifier;
    } else if (second == nullptr && first != &classifier) {
      second = &classifier;
    }
  }
  VornClassifier* getFirstBut(const VornClassifier& reader) const {
    return first == &reader ? second : first;
  }
};

// Null for an element that is in no schema.
const VornPackage* getSchema(const VornClassifier& classifier) {
  return classifier.importingPackageCollection.count() > 0 ? classifier.importingPackageCollection[0]
                                                           : nullptr;
}

// Tables and views by one of their names, and by schema where several have it.
class NameTable {
 public:
  void add(const VornString& name, VornClassifier& classifier) {
    if (name.empty()) {
      return;
    }
    const std::string folded = foldCase(name.view());
    Holders& holders = holders_[folded];
    const bool hadSeveral = holders.second != nullptr;
    holders.add(classifier);
    if (holders.second != nullptr) {
      if (!hadSeveral) {
        addToSchema(folded, *holders.first);
      }
      addToSchema(folded, classifier);
    }
  }

  // Of that name, in one letter case, the one in the schema of that name, otherwise the first; null where
  // there is none but `reader`.
  VornClassifier* find(const std::string& name, const std::optional<std::string>& schema,
                       const VornClassifier& reader) const {
    const auto found = holders_.find(name);
    if (found == holders_.end()) {
      return nullptr;
    }
    if (found->second.second != nullptr && schema) {
      const auto inSchema = inSchemas_.find(join(*schema, name));
      VornClassifier* namesake =
          inSchema == inSchemas_.end() ? nullptr : inSchema->second.getFirstBut(reader);
      if (namesake != nullptr) {
        return namesake;
      }
    }
    return found->second.getFirstBut(reader);
  }

 private:
  // No name holds a zero byte.
  static std::string join(const std::string& schema, const std::string& name) { return schema + '\0' + name; }

  void addToSchema(const std::string& folded, VornClassifier& classifier) {
    if (const VornPackage* schema = getSchema(classifier)) {
      inSchemas_[join(foldCase(schema->getName().view()), folded)].add(classifier);
    }
  }

  std::unordered_map<std::string, Holders> holders_;
  std::unordered_map<std::string, Holders> inSchemas_;
};

VornClassifier* asClassifier(VornNamespaceElement* element) {
  switch (element->getElementType()) {
    case VornElementType::classType:
    case VornElementType::sqlViewEntity:
      return cast<VornClassifier>(element);
    default:
      return nullptr;
  }
}

// The tables and views of a package, by each kind of name.
class Sources {
 public:
  explicit Sources(const VornDesignPackage& package) {
    for (VornNamespaceElement* element : package.elementCollection) {
      if (VornClassifier* classifier = asClassifier(element)) {
        byPhysicalName_.add(classifier->physicalName, *classifier);
        byName_.add(classifier->getName(), *classifier);
        for (const VornSynonym* synonym : classifier->synonymCollection) {
          bySynonym_.add(synonym->getName(), *classifier);
        }
      }
    }
  }

  VornClassifier* find(const SqlSource& source, const VornClassifier& reader) const {
    std::optional<std::string> schema;
    if (!source.qualifier.empty()) {
      schema = foldCase(source.qualifier);
    } else if (const VornPackage* own = getSchema(reader)) {
      schema = foldCase(own->getName().view());
    }
    const std::string name = foldCase(source.name);
    for (const NameTable* names : {&byPhysicalName_, &byName_, &bySynonym_}) {
      if (VornClassifier* found = names->find(name, schema, reader)) {
        return found;
      }
    }
    return nullptr;
  }

 private:
  NameTable byPhysicalName_;
  NameTable byName_;
  NameTable bySynonym_;
};

void addSources(VornSQLViewEntity& view, const Sources& sources, VornLog* log) {
  for (const SqlSource& named : findSources(view.viewStatement.view())) {
    if (VornClassifier* source = sources.find(named, view)) {
      view.addSourceElement(source);
    } else if (log != nullptr && log->isEnabled(VornSeverity::debug)) {
      log->debug("the view '" + std::string(view.getName().view()) + "' reads '" + named.name +
                 "', which is not in the model");
    }
  }
}

// Calls `visit` with each view of the package.
template <class Visit>
void forEachView(const VornDesignPackage& package, const Visit& visit) {
  for (VornNamespaceElement* element : package.elementCollection) {
    if (element->getElementType() == VornElementType::sqlViewEntity) {
      visit(cast<VornSQLViewEntity>(*element));
    }
  }
}

// Whether the text is the same in all encodings. Some spell other characters with escapes alone, of which the
// first byte is a control character or '~'.
bool isPlain(const VornString& text) {
  return std::ranges::all_of(text.view(), [](char byte) {
    return (byte >= ' ' && byte < '~') || kVornBlanks.find(byte) != std::string_view::npos;
  });
}

bool hasPlainNames(const VornModelObject& object) {
  return isPlain(object.getName()) && isPlain(object.physicalName) &&
         std::ranges::all_of(object.synonymCollection,
                             [](const VornSynonym* synonym) { return isPlain(synonym->getName()); });
}

bool isPlainView(const VornSQLViewEntity& view) {
  return isPlain(view.getName()) && isPlain(view.viewStatement);
}

}  // namespace

void processSqlViewAssociations(VornStoreModel& model, VornLog& log) {
  for (const VornDesignPackage* package : model.designPackageCollection) {
    std::optional<Sources> sources;  // most models have no views
    forEachView(*package, [&](VornSQLViewEntity& view) {
      if (!sources) {
        sources.emplace(*package);
      }
      addSources(view, *sources, isPlainView(view) ? &log : nullptr);
    });
  }
}

VornUndecodedViews::VornUndecodedViews(const VornStoreModel& model) {
  const bool hasPlainSchemas = std::ranges::all_of(
      model.dataPackageCollection, [](const VornDataPackage* schema) { return hasPlainNames(*schema); });
  for (const VornDesignPackage* package : model.designPackageCollection) {
    bool hasViews = false;
    const std::size_t count = views_.size();
    forEachView(*package, [&](const VornSQLViewEntity& view) {
      hasViews = true;
      if (!isPlainView(view)) {
        views_.insert(&view);
      }
    });
    const auto isPlainElement = [](VornNamespaceElement* element) {
      const VornClassifier* classifier = asClassifier(element);
      return classifier == nullptr || hasPlainNames(*classifier);
    };
    if (hasViews && (views_.size() > count || !hasPlainSchemas ||
                     !std::ranges::all_of(package->elementCollection, isPlainElement))) {
      packages_.push_back(package);
    }
  }
}

void VornUndecodedViews::findSources(VornLog& log) const {
  for (const VornDesignPackage* package : packages_) {
    const Sources sources(*package);
    forEachView(*package, [&](VornSQLViewEntity& view) {
      view.sourceElementCollection.clear();
      addSources(view, sources, views_.contains(&view) ? &log : nullptr);
    });
  }
}
