// VornDataTypeConstants: the names by which data stores and tools are known to the data type library. A data
// store's name is what a saved model says of it.
#pragma once

class VornDataTypeConstants {
 public:
  static constexpr const char* DATASTORE_ACCESS = "ACCESS";
  static constexpr const char* DATASTORE_ANSI_SQL = "ANSI_SQL";
  static constexpr const char* DATASTORE_AS_400 = "AS_400";
  static constexpr const char* DATASTORE_DB2_6000 = "DB2_6000";
  static constexpr const char* DATASTORE_DB2_MVS = "DB2_MVS";
  static constexpr const char* DATASTORE_DB2_UDB = "DB2_UDB";
  static constexpr const char* DATASTORE_DBASE = "DBASE";
  static constexpr const char* DATASTORE_INFORMIX = "INFORMIX";
  static constexpr const char* DATASTORE_INGRES = "INGRES";
  static constexpr const char* DATASTORE_INTERBASE = "INTERBASE";
  static constexpr const char* DATASTORE_JAVA = "JAVA";
  static constexpr const char* DATASTORE_MICROSOFT_SQL_SERVER = "MICROSOFT_SQL_SERVER";
  static constexpr const char* DATASTORE_NONSTOP_SQL = "NONSTOP_SQL";
  static constexpr const char* DATASTORE_OMNIS_7 = "OMNIS_7";
  static constexpr const char* DATASTORE_ORACLE = "ORACLE";
  static constexpr const char* DATASTORE_PARADOX = "PARADOX";
  static constexpr const char* DATASTORE_PROGRESS = "PROGRESS";
  static constexpr const char* DATASTORE_RDB = "RDB";
  static constexpr const char* DATASTORE_SILVERRUN_RDM_LOGICAL = "SILVERRUN_RDM_LOGICAL";
  static constexpr const char* DATASTORE_SQLBASE = "SQLBASE";
  static constexpr const char* DATASTORE_SQL_DS = "SQL_DS";
  static constexpr const char* DATASTORE_SYBASE_SQL_ANYWHERE = "SYBASE_SQL_ANYWHERE";
  static constexpr const char* DATASTORE_SYBASE_SQL_SERVER = "SYBASE_SQL_SERVER";
  static constexpr const char* DATASTORE_SYNON = "SYNON";
  static constexpr const char* DATASTORE_TERADATA = "TERADATA";
  static constexpr const char* DATASTORE_UNIFACE = "UNIFACE";
  static constexpr const char* DATASTORE_WATCOM = "WATCOM";
  static constexpr const char* DATASTORE_XDB = "XDB";

  // Whose words a native type name is in: the modelling tool's own, or those of the data store.
  static constexpr const char* TOOL_SILVERRUN_RDM = "SilverrunRdm";
  static constexpr const char* TOOL_VORNGENERIC = "VornGeneric";
};
