#include "bridge/messages/tavik.h"

const VornBridgeSpecificationLiteral TAVIK::BRIDGE_SPEC_SILVERRUNRDM262_IMPORT = {
    .identifier = "SilverrunRdm262Import",
    .toolWeb = "",
    .vendorName = "Silverrun",
    .toolName = "Silverrun RDM",
    .toolVersions = "2.4.4 to 2.8.5",
    .toolCategory = "Data Modeling",
    .metadataCoverage =
        "Physical and logical data model: tables, views, columns, types, keys, indexes, "
        "relationships, generalizations, schemas",
    .toolInterface = "TXT file",
    .methodology = "Relational data modeling",
    .descriptionLiteral = "bridge_spec_silverrunrdm_import_description",
};
