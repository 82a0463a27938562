// See sqlite_texts.h.
#include "sqlite_texts.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <functional>

static void Check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "sqlite: %s failed\n", what);
    std::exit(1);
}

static void Execute(sqlite3* database, const char* sql) {
    Check(sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
}

static void Bind(sqlite3_stmt* statement, int place, const std::string& text) {
    sqlite3_bind_text(statement, place, text.c_str(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
}

static sqlite3_stmt* Prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    return statement;
}

static void Insert(sqlite3_stmt* statement) {
    Check(sqlite3_step(statement) == SQLITE_DONE, "insert");
    sqlite3_reset(statement);
}

void SqliteCreateTexts(const std::string& path, const std::vector<Disc>& discs) {
    std::remove(path.c_str());
    sqlite3* database = nullptr;
    Check(sqlite3_open(path.c_str(), &database) == SQLITE_OK, "open");
    Execute(
        database,
        "CREATE TABLE disc(number INTEGER PRIMARY KEY, seconds, artist, name, category, label,"
        " notes, year);"
        "CREATE TABLE track(disc INTEGER, number INTEGER, name, seconds, PRIMARY KEY(disc, number))"
        " WITHOUT ROWID; BEGIN");
    sqlite3_stmt* disc = Prepare(database, "INSERT INTO disc VALUES(?, ?, ?, ?, ?, ?, ?, ?)");
    sqlite3_stmt* track = Prepare(database, "INSERT INTO track VALUES(?, ?, ?, ?)");
    int number = 0;
    for (const Disc& one : discs) {
        sqlite3_bind_int(disc, 1, ++number);
        sqlite3_bind_int(disc, 2, one.toc.totalSeconds);
        int place = 3;
        for (const std::string* text :
             {&one.fields.artist, &one.fields.discName, &one.fields.category, &one.fields.label,
              &one.fields.notes, &one.fields.yearReleased})
            Bind(disc, place++, *text);
        Insert(disc);
        for (int i = 0; i < one.toc.trackCount; ++i) {
            sqlite3_bind_int(track, 1, number);
            sqlite3_bind_int(track, 2, i + 1);
            Bind(track, 3, one.fields.trackNames[i]);
            sqlite3_bind_int(track, 4, one.toc.lengthSeconds[i]);
            Insert(track);
        }
    }
    sqlite3_finalize(disc);
    sqlite3_finalize(track);
    Execute(database, "COMMIT");
    sqlite3_close(database);
}

static int ForEachRow(const std::string& path, const char* sql, const std::string& parameter,
                      const std::function<void(sqlite3_stmt*)>& row) {
    sqlite3* database = nullptr;
    Check(sqlite3_open(path.c_str(), &database) == SQLITE_OK, "open");
    sqlite3_stmt* statement = Prepare(database, sql);
    if (!parameter.empty()) Bind(statement, 1, parameter);
    int count = 0;
    for (; sqlite3_step(statement) == SQLITE_ROW; ++count)
        row(statement);
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return count;
}

int SqliteSearch(const std::string& path, const std::string& text) {
    return ForEachRow(path,
                      "SELECT artist, name FROM disc WHERE EXISTS(SELECT 1 FROM track WHERE"
                      " disc = disc.number AND track.name LIKE ?1) OR artist LIKE ?1 OR name LIKE"
                      " ?1 OR category LIKE ?1 OR label LIKE ?1 OR notes LIKE ?1 OR year LIKE ?1",
                      "%" + text + "%", [](sqlite3_stmt*) {});
}

void SqliteExport(const std::string& path, const std::string& textPath, bool sorted) {
    FILE* file = std::fopen(textPath.c_str(), "wb");
    Check(file != nullptr, "export file");
    const char* const sql =
        sorted ? "SELECT d.artist, d.name, t.number, t.name, t.seconds FROM disc d JOIN track t ON"
                 " t.disc = d.number ORDER BY d.artist, d.number, t.number"
               : "SELECT d.artist, d.name, t.number, t.name, t.seconds FROM disc d JOIN track t ON"
                 " t.disc = d.number ORDER BY d.number, t.number";
    ForEachRow(path, sql, "", [&](sqlite3_stmt* row) {
        const int seconds = sqlite3_column_int(row, 4);
        std::fprintf(file, "%s,%s,%d,%s,%d:%02d\r\n", sqlite3_column_text(row, 0),
                     sqlite3_column_text(row, 1), sqlite3_column_int(row, 2),
                     sqlite3_column_text(row, 3), seconds / 60, seconds % 60);
    });
    std::fclose(file);
}

int64_t SqliteTotalSeconds(const std::string& path) {
    int64_t total = 0;
    ForEachRow(path, "SELECT sum(seconds), (SELECT count(*) FROM track) FROM disc", "",
               [&](sqlite3_stmt* row) { total = sqlite3_column_int64(row, 0); });
    return total;
}
