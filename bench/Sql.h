// What the benchmarks need of SQLite.
#pragma once

#include <memory>
#include <string>

#include <sqlite3.h>

#include "bench/Bench.h"

using SqlDatabase = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;
using SqlStatement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

inline SqlDatabase OpenInMemory()
{
    sqlite3* database = nullptr;
    Require(sqlite3_open(":memory:", &database) == SQLITE_OK, "no in-memory database");
    return {database, sqlite3_close_v2};
}

inline SqlStatement NoStatement()
{
    return {nullptr, sqlite3_finalize};
}

inline void Run(const SqlDatabase& database, const std::string& sql)
{
    Require(sqlite3_exec(database.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, sql);
}

inline SqlStatement Prepare(const SqlDatabase& database, const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    Require(sqlite3_prepare_v3(database.get(), sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT,
                               &statement, nullptr) == SQLITE_OK,
            sql);
    return {statement, sqlite3_finalize};
}
