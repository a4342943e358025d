// What a host shows of a bridge: the host's literals, one a bridge, and the specification filled from them.
#pragma once

#include "host/base/text.h"

// The host's facts about one bridge.
struct VornBridgeSpecificationLiteral {
  VornString identifier;  // "SilverrunRdm262Import"
  VornString toolWeb;
  VornString vendorName;
  VornString toolName;
  VornString toolVersions;
  VornString toolCategory;
  VornString metadataCoverage;
  VornString toolInterface;
  VornString methodology;
  VornString descriptionLiteral;  // names a text literal of the bridge

  const VornString& getTool_Web() const { return toolWeb; }
  const VornString& getVendor_Name() const { return vendorName; }
  const VornString& getTool_Name() const { return toolName; }
  const VornString& getTool_Versions() const { return toolVersions; }
  const VornString& getMethodology_ToolCategory() const { return toolCategory; }
  const VornString& getMethodology_MetadataCoverage_Summary() const { return metadataCoverage; }
  const VornString& getToolInterface_Summary() const { return toolInterface; }
  const VornString& getMethodology_Summary() const { return methodology; }
  const VornString& getInternalCode_DescriptionLiteralId() const { return descriptionLiteral; }
};

// A bridge's answer to the question what it is.
struct VornBridgeSpecification {
  VornString toolWeb;
  VornString vendorName;
  VornString toolName;
  VornString toolVersions;
  VornString toolCategory;
  VornString metadataCoverage;
  VornString toolInterface;
  VornString methodology;
  VornString buildVersion;
  VornString description;
  bool beta = false;

  void initialize(const VornString& web, const VornString& vendor, const VornString& tool,
                  const VornString& versions, const VornString& category, const VornString& coverage,
                  const VornString& interface, const VornString& method, const VornString& build,
                  const VornString& text, bool isBeta);
};
