/* Loaded by the SQLite ODBC driver (LoadExt=): attaches a database named dbo
 * beside the main file, so that the tool's [dbo].[...] names resolve there as
 * they do on SQL Server. */
#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT1

int sqlite3_extension_init(sqlite3 *db, char **error, const sqlite3_api_routines *api)
{
    SQLITE_EXTENSION_INIT2(api);
    const char *main = sqlite3_db_filename(db, "main");
    char *attach = sqlite3_mprintf("ATTACH DATABASE '%q-dbo' AS dbo; ATTACH DATABASE '%q-sys' AS sys", main ? main : "",
                                   main ? main : "");
    const int result = sqlite3_exec(db, attach, 0, 0, error);
    sqlite3_free(attach);
    return result;
}
