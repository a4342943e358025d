#include "bridge/target_systems/target_systems.h"

#include <algorithm>

#include "host/datatypes/data_type_constants.h"

targetDatabaseInfo::targetDatabaseInfo(VornString name, VornString version, VornString hostName,
                                       VornString dataStore, int major, int minor, int release)
    : VornDataStoreVersion(std::move(dataStore), major, minor, release),
      systemName(std::move(name)),
      systemVersion(std::move(version)),
      dataStoreVersionName(std::move(hostName)) {
}

namespace silrdm {

using Store = VornDataTypeConstants;

// Irregular-looking rows are intentional.
// clang-format off
const std::array<targetDatabaseInfo, 86> targetDatabases = {{
    {"ANSI SQL92", "1.0", "ANSI SQL 92", Store::DATASTORE_ANSI_SQL, 2, 0, 0},
    {"Java", "1.0", "<Logical>", Store::DATASTORE_JAVA, 1, 0, 0},
    {"DBase IV", "1.0", "dBASE IV", Store::DATASTORE_DBASE, 4, 0, 0},
    {"Ingres", "6.4", "Ingres 6.4", Store::DATASTORE_INGRES, 6, 4, 0},
    {"Open Ingres", "1.2", "CA OpenIngres", Store::DATASTORE_INGRES, 7, 2, 0},
    {"<Logical>", "1.0", "<Logical>", Store::DATASTORE_SILVERRUN_RDM_LOGICAL, 1, 0, 0},
    {"NonStop SQL", "1.0", "NonStop SQL", Store::DATASTORE_NONSTOP_SQL, 1, 0, 0},
    {"Omnis", "7.0", "OMNIS", Store::DATASTORE_OMNIS_7, 3, 0, 0},
    {"Paradox", "7.0", "Paradox 7.x", Store::DATASTORE_PARADOX, 7, 0, 0},
    {"Rdb", "1.0", "Rdb 1.0", Store::DATASTORE_RDB, 4, 0, 0},
    {"SQLAnywhere", "5.0", "SYBASE SQL Anywhere", Store::DATASTORE_SYBASE_SQL_ANYWHERE, 5, 0, 0},
    {"SQL Anywhere", "5.0", "SYBASE SQL Anywhere", Store::DATASTORE_SYBASE_SQL_ANYWHERE, 5, 0, 0},
    {"SQL Base", "1.0", "SQLBase 1.0", Store::DATASTORE_SQLBASE, 5, 0, 0},
    {"SQL/400", "1.0", "SQL/400", Store::DATASTORE_AS_400, 2, 0, 0},
    {"SQL DS", "1.0", "SQL/Data System", Store::DATASTORE_SQL_DS, 1, 0, 0},
    {"Synon", "2E", "Synon", Store::DATASTORE_SYNON, 1, 0, 0},
    {"Teradata", "1.0", "Teradata 1", Store::DATASTORE_TERADATA, 1, 0, 0},
    {"Teradata", "4.1", "Teradata 2.x", Store::DATASTORE_TERADATA, 2, 6, 0},
    {"Teradata", "5.0", "Teradata 2.x", Store::DATASTORE_TERADATA, 2, 6, 0},
    {"Teradata", "6.0", "Teradata 2.x", Store::DATASTORE_TERADATA, 2, 6, 0},
    {"Watcom", "4.0", "WATCOM 4", Store::DATASTORE_WATCOM, 4, 0, 0},
    {"Xdb", "1.0", "XDB 3.0", Store::DATASTORE_XDB, 3, 0, 0},
    {"DB2/6000", "2.1", "DB2/6000 2.1", Store::DATASTORE_DB2_6000, 2, 1, 0},
    {"DB2 AS/400", "3.7", "AS/400 3", Store::DATASTORE_AS_400, 3, 7, 0},
    {"DB2 AS/400", "4.1", "AS/400 4", Store::DATASTORE_AS_400, 4, 1, 0},
    {"DB2 AS/400", "4.2", "AS/400 4", Store::DATASTORE_AS_400, 4, 2, 0},
    {"DB2 AS/400", "4.4", "AS/400 4", Store::DATASTORE_AS_400, 4, 4, 0},
    {"DB2 MVS 2.1", "2.1", "DB2/MVS 2", Store::DATASTORE_DB2_MVS, 2, 1, 0},
    {"DB2 MVS", "2.0", "DB2/MVS 2", Store::DATASTORE_DB2_MVS, 2, 0, 0},
    {"DB2 MVS", "2.1", "DB2/MVS 2", Store::DATASTORE_DB2_MVS, 2, 1, 0},
    {"DB2 MVS", "2.2", "DB2/MVS 2", Store::DATASTORE_DB2_MVS, 2, 2, 0},
    {"DB2 MVS 3.1", "3.1", "DB2/MVS 3", Store::DATASTORE_DB2_MVS, 3, 1, 0},
    {"DB2 MVS", "3.0", "DB2/MVS 3", Store::DATASTORE_DB2_MVS, 3, 0, 0},
    {"DB2 MVS", "3.1", "DB2/MVS 3", Store::DATASTORE_DB2_MVS, 3, 1, 0},
    {"DB2 MVS 4.1", "4.1", "DB2/MVS 4", Store::DATASTORE_DB2_MVS, 4, 1, 0},
    {"DB2 MVS", "4.0", "DB2/MVS 4", Store::DATASTORE_DB2_MVS, 4, 0, 0},
    {"DB2 MVS", "4.1", "DB2/MVS 4", Store::DATASTORE_DB2_MVS, 4, 1, 0},
    {"DB2 MVS", "5.1", "DB2/MVS 4", Store::DATASTORE_DB2_MVS, 5, 1, 0},
    {"DB2 UDB", "6.1", "DB2/UDB 6", Store::DATASTORE_DB2_UDB, 6, 1, 0},
    {"Informix OL", "7.1", "INFORMIX 7.x", Store::DATASTORE_INFORMIX, 7, 1, 0},
    {"Informix SE", "7.1", "INFORMIX 7.x", Store::DATASTORE_INFORMIX, 7, 1, 0},
    {"Informix Universal Server", "9.0", "INFORMIX 9.x", Store::DATASTORE_INFORMIX, 9, 2, 0},
    {"Informix Universal Server", "9.2", "INFORMIX 9.x", Store::DATASTORE_INFORMIX, 9, 2, 0},
    {"Informix Dynamic Server", "9.2", "INFORMIX 9.x", Store::DATASTORE_INFORMIX, 9, 2, 0},
    {"Informix Dynamic Server", "10.0", "INFORMIX 9.x", Store::DATASTORE_INFORMIX, 9, 2, 0},
    {"InterBase", "4.0", "InterBase", Store::DATASTORE_INTERBASE, 4, 0, 0},
    {"InterBase", "4.1", "InterBase 4.1", Store::DATASTORE_INTERBASE, 4, 1, 0},
    {"MS Access", "2.0", "Access 2.0", Store::DATASTORE_ACCESS, 2, 0, 0},
    {"MS Access Win95", "7.0", "Access 97", Store::DATASTORE_ACCESS, 7, 0, 0},
    {"MS Access Win 97", "1.0", "Access 97", Store::DATASTORE_ACCESS, 7, 0, 0},
    {"MS Access Win 2000", "9.0", "Access 2000", Store::DATASTORE_ACCESS, 9, 0, 0},
    {"Oracle", "6.0", "ORACLE 6", Store::DATASTORE_ORACLE, 6, 0, 0},
    {"Oracle6", "6.0", "ORACLE 6", Store::DATASTORE_ORACLE, 6, 0, 0},
    {"Oracle", "7.0", "ORACLE 7.0", Store::DATASTORE_ORACLE, 7, 0, 0},
    {"Oracle7", "7.0", "ORACLE 7.0", Store::DATASTORE_ORACLE, 7, 0, 0},
    {"Oracle", "8.0", "ORACLE 8.x", Store::DATASTORE_ORACLE, 8, 0, 0},
    {"Oracle8", "8.0", "ORACLE 8.x", Store::DATASTORE_ORACLE, 8, 0, 0},
    {"Oracle", "8.1", "ORACLE 8.x", Store::DATASTORE_ORACLE, 8, 1, 0},
    {"Oracle", "9.0", "ORACLE 9.x", Store::DATASTORE_ORACLE, 9, 0, 0},
    {"Oracle", "10.0", "ORACLE 10.x", Store::DATASTORE_ORACLE, 10, 0, 0},
    {"Oracle", "11.0", "ORACLE 11.x", Store::DATASTORE_ORACLE, 11, 0, 0},
    {"Progress", "6.3", "PROGRESS 7.0", Store::DATASTORE_PROGRESS, 6, 3, 0},
    {"Progress", "7.3", "PROGRESS 7.0", Store::DATASTORE_PROGRESS, 7, 3, 0},
    {"Progress", "8.0", "PROGRESS 8.x", Store::DATASTORE_PROGRESS, 8, 0, 0},
    {"Progress", "9.0", "PROGRESS 8.x", Store::DATASTORE_PROGRESS, 8, 0, 0},
    {"Progress", "10.0", "PROGRESS 8.x", Store::DATASTORE_PROGRESS, 8, 0, 0},
    {"SQL Server", "4.2", "SQL Server 4.x", Store::DATASTORE_SYBASE_SQL_SERVER, 4, 2, 0},
    {"SQL Server", "6.0", "SQL Server 6.x", Store::DATASTORE_MICROSOFT_SQL_SERVER, 6, 0, 0},
    {"SQL Server", "6.5", "SQL Server 6.x", Store::DATASTORE_MICROSOFT_SQL_SERVER, 6, 5, 0},
    {"SQL Server", "7", "SQL Server 7.x", Store::DATASTORE_MICROSOFT_SQL_SERVER, 7, 0, 0},
    {"SQL Server", "8.0", "SQL Server 2000", Store::DATASTORE_MICROSOFT_SQL_SERVER, 8, 0, 0},
    {"SQL Server", "9.0", "SQL Server 2005", Store::DATASTORE_MICROSOFT_SQL_SERVER, 9, 0, 0},
    {"SQL Server", "10.0", "SQL Server 2008", Store::DATASTORE_MICROSOFT_SQL_SERVER, 10, 0, 0},
    {"Sybase", "4.9", "SYBASE SQL 4.2", Store::DATASTORE_SYBASE_SQL_SERVER, 4, 9, 0},
    {"Sybase System10", "10.0", "SYBASE SQL 10.x", Store::DATASTORE_SYBASE_SQL_SERVER, 10, 0, 0},
    {"Sybase", "10.0", "SYBASE SQL 10.x", Store::DATASTORE_SYBASE_SQL_SERVER, 10, 0, 0},
    {"Sybase System11", "11", "SYBASE SQL 11.x", Store::DATASTORE_SYBASE_SQL_SERVER, 11, 0, 0},
    {"Sybase", "11.0", "SYBASE SQL 11.x", Store::DATASTORE_SYBASE_SQL_SERVER, 11, 0, 0},
    {"Sybase", "11.5", "SYBASE AS Enterprise 11.5", Store::DATASTORE_SYBASE_SQL_SERVER, 11, 5, 0},
    {"Sybase", "11.9", "SYBASE AS Enterprise 11.5", Store::DATASTORE_SYBASE_SQL_SERVER, 11, 9, 0},
    {"Sybase", "12.0", "SYBASE AS Enterprise 12.0", Store::DATASTORE_SYBASE_SQL_SERVER, 12, 0, 0},
    {"Sybase", "12.5", "SYBASE AS Enterprise 12.5", Store::DATASTORE_SYBASE_SQL_SERVER, 12, 5, 0},
    {"Uniface", "5.0", "Uniface 5.0", Store::DATASTORE_UNIFACE, 5, 0, 0},
    {"Uniface", "6.1", "Uniface 6.1", Store::DATASTORE_UNIFACE, 6, 1, 0},
    {"Uniface", "7.1", "Uniface 7.1", Store::DATASTORE_UNIFACE, 7, 1, 0},
    {"", "", "", "", 0, 0, 0},
}};
// clang-format on

std::span<const targetDatabaseInfo> getTargetSystems() {
  return std::span(targetDatabases).first(targetDatabases.size() - 1);
}

const targetDatabaseInfo* findTargetSystem(const VornString& name, const VornString& version) {
  for (const targetDatabaseInfo& entry : getTargetSystems()) {
    if (entry.systemName.equals(name, true) && entry.systemVersion.equals(version, true)) {
      return &entry;
    }
  }
  return nullptr;
}

const targetDatabaseInfo& defaultTargetSystem() {
  static const targetDatabaseInfo& entry = *findTargetSystem("<Logical>", "1.0");
  return entry;
}

}  // namespace silrdm
