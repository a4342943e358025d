// The conversion of native type names.
#include "host/datatypes/data_type_converter.h"

#include "host/datatypes/data_type_constants.h"
#include "tests/support.h"

namespace {

using Store = VornDataTypeConstants;

TEST(DataTypeConverter, KnowsTheNamesOfEachVersionOfADataStore) {
  const struct {
    const char* dataStore;
    VornDataStoreVersion::Number version;
    const char* nativeType;
    const char* hostType;
  } cases[] = {
      // Ranges of versions, open and closed, bounds of one and of two numbers.
      {Store::DATASTORE_ORACLE, {6, 9, 9}, "CHAR", "VARCHAR"},
      {Store::DATASTORE_ORACLE, {7, 0, 0}, "CHAR", "CHAR"},
      {Store::DATASTORE_ORACLE, {6, 9, 9}, "MLSLABEL", "undefined"},
      {Store::DATASTORE_ORACLE, {8, 1, 7}, "MLSLABEL", "BINARY"},
      {Store::DATASTORE_ORACLE, {8, 2, 0}, "MLSLABEL", "undefined"},
      {Store::DATASTORE_ORACLE, {9, 2, 0}, "BINARY_FLOAT", "undefined"},
      {Store::DATASTORE_ORACLE, {10, 0, 0}, "BINARY_FLOAT", "REAL"},
      {Store::DATASTORE_INGRES, {7, 1, 9}, "BYTE", "undefined"},
      {Store::DATASTORE_INGRES, {7, 2, 0}, "BYTE", "BINARY"},
      // Letter case, blanks and arguments that do not count.
      {Store::DATASTORE_DB2_UDB, {6, 1, 0}, " long  varChar ", "CLOB"},
      {Store::DATASTORE_DB2_UDB, {6, 1, 0}, "char ( 16 ) for bit data", "BINARY"},
      {Store::DATASTORE_DB2_UDB, {6, 1, 0}, "Decimal(10", "DECIMAL"},
      {Store::DATASTORE_DB2_UDB, {6, 1, 0}, "varchar(2)for bit data", "undefined"},
      {Store::DATASTORE_DB2_UDB, {6, 1, 0}, "", "undefined"},
      {Store::DATASTORE_ORACLE, {9, 0, 0}, "timestamp with time zone", "TIMESTAMP WITH TIME ZONE"},
      {Store::DATASTORE_DB2_UDB, {6, 1, 0}, "date)", "undefined"},
      // Arguments that are a part of the name.
      {Store::DATASTORE_MICROSOFT_SQL_SERVER, {9, 0, 0}, "varchar ( max )", "CLOB"},
      {Store::DATASTORE_MICROSOFT_SQL_SERVER, {9, 0, 0}, "varchar(8000)", "VARCHAR"},
      {Store::DATASTORE_MICROSOFT_SQL_SERVER, {8, 0, 0}, "varchar(max)", "VARCHAR"},
      {Store::DATASTORE_INFORMIX, {7, 1, 0}, "interval day(3) to second", "INTERVAL DAY TO SECOND"},
      {Store::DATASTORE_ORACLE, {8, 0, 0}, "NUMBER((3)1)", "NUMERIC"},
      // Sizes that are written into the name.
      {Store::DATASTORE_INGRES, {6, 4, 0}, "c20", "CHAR"},
      {Store::DATASTORE_INGRES, {6, 4, 0}, "I4", "INTEGER"},
      {Store::DATASTORE_ORACLE, {8, 0, 0}, "NUMBER20", "undefined"},
      {Store::DATASTORE_NONSTOP_SQL, {1, 0, 0}, "PIC S999V99 COMP", "NUMERIC"},
      {"NO SUCH STORE", {1, 0, 0}, "CHAR", "undefined"},
  };
  CountingLog log;
  for (const auto& expected : cases) {
    const auto& [major, minor, release] = expected.version;
    VornDataTypeConverter converter(log, VornDataStoreVersion(expected.dataStore, major, minor, release),
                                    Store::TOOL_VORNGENERIC);
    EXPECT_EQ(converter.getImportTypeName(expected.nativeType).view(), expected.hostType)
        << expected.dataStore << ' ' << major << '.' << minor << ' ' << expected.nativeType;
  }
}

}  // namespace
