#include "host/bridgelib/view_sources.h"

#include <array>
#include <optional>
#include <string>
#include <unordered_map>

#include "host/bridgelib/sql_sources.h"
#include "host/metamodel/classifier.h"
#include "host/metamodel/store_model.h"
#include "host/std/log.h"

namespace {

// Tables and views by one of their names, in upper case.
class NameTable {
 public:
  void add(const VornString& name, VornClassifier& classifier) {
    if (!name.empty()) {
      auto& [first, second] = holders_[toUpperAscii(name.view())];
      if (first == nullptr) {
        first = &classifier;
      } else if (second == nullptr && first != &classifier) {
        second = &classifier;
      }
    }
  }

  // The first one of that name that is not `reader`, or null.
  VornClassifier* find(const std::string& name, const VornClassifier& reader) const {
    const auto found = holders_.find(name);
    if (found == holders_.end()) {
      return nullptr;
    }
    const auto& [first, second] = found->second;
    return first == &reader ? second : first;
  }

 private:
  std::unordered_map<std::string, std::array<VornClassifier*, 2>> holders_;
};

VornClassifier* asClassifier(VornNamespaceElement* element) {
  switch (element->getElementType()) {
    case VornElementType::classType:
    case VornElementType::sqlViewEntity:
      return static_cast<VornClassifier*>(element);
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

  VornClassifier* find(const std::string& name, const VornClassifier& reader) const {
    for (const NameTable* names : {&byPhysicalName_, &byName_, &bySynonym_}) {
      if (VornClassifier* found = names->find(name, reader)) {
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

void addSources(VornSQLViewEntity& view, const Sources& sources, VornLog& log) {
  for (const std::string& name : findSourceNames(view.viewStatement.view())) {
    if (VornClassifier* source = sources.find(toUpperAscii(name), view)) {
      view.addSourceElement(source);
    } else if (log.isEnabled(VornSeverity::debug)) {
      log.debug("the view '" + std::string(view.getName().view()) + "' reads '" + name +
                "', which is not in the model");
    }
  }
}

}  // namespace

void processSqlViewAssociations(VornStoreModel& model, VornLog& log) {
  for (const VornDesignPackage* package : model.designPackageCollection) {
    std::optional<Sources> sources;  // most models have no views
    for (VornNamespaceElement* element : package->elementCollection) {
      if (element->getElementType() == VornElementType::sqlViewEntity) {
        if (!sources) {
          sources.emplace(*package);
        }
        addSources(static_cast<VornSQLViewEntity&>(*element), *sources, log);
      }
    }
  }
}
