// The catalogue of target systems and the data stores it stands for.
#include "bridge/target_systems/target_systems.h"

#include "tests/support.h"

namespace silrdm {
namespace {

std::string describe(const targetDatabaseInfo* entry) {
  return entry == nullptr
             ? "none"
             : (entry->dataStoreVersionName + " " + entry->getDataStore() + " " + entry->getVersionText())
                   .c_str();
}

TEST(TargetSystems, AreFoundByTheirExactNameAndVersion) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"Oracle", "8.1", "ORACLE 8.x ORACLE 8.1.0"},
      {"Oracle", "8.2", "none"},
      {"oracle", "8.1", "none"},
      {"Java", "1.0", "<Logical> JAVA 1.0.0"},
      {"Omnis", "7.0", "OMNIS OMNIS_7 3.0.0"},
      {"DB2 MVS", "5.1", "DB2/MVS 4 DB2_MVS 5.1.0"},
      {"Synon", "2e", "none"},
      {"MS Access Win 97", "1.0", "Access 97 ACCESS 7.0.0"},
      {"Informix Dynamic Server", "10.0", "INFORMIX 9.x INFORMIX 9.2.0"},
      {"Progress", "10.0", "PROGRESS 8.x PROGRESS 8.0.0"},
      {"SQL Server", "4.2", "SQL Server 4.x SYBASE_SQL_SERVER 4.2.0"},
      {"SQL Server", "7", "SQL Server 7.x MICROSOFT_SQL_SERVER 7.0.0"},
      {"Sybase System11", "11.0", "none"},
      {"", "", "none"},
  };
  for (const auto& [name, version, expected] : cases) {
    EXPECT_EQ(describe(findTargetSystem(name, version)), expected);
  }
  for (const targetDatabaseInfo& entry : getTargetSystems()) {
    EXPECT_EQ(findTargetSystem(entry.systemName, entry.systemVersion), &entry) << describe(&entry);
  }
  EXPECT_EQ(describe(&defaultTargetSystem()), "<Logical> SILVERRUN_RDM_LOGICAL 1.0.0");
}

}  // namespace
}  // namespace silrdm
