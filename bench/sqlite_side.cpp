// The same discs in an SQLite database with an index on the key.
#include "sqlite_side.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

static int calls = 0;

// SQLite's own table of system calls; each is replaced by one that counts.
template <auto Tag, typename Call>
struct Counted;
template <auto Tag, typename Result, typename... Arguments>
struct Counted<Tag, Result (*)(Arguments...)> {
    inline static Result (*original)(Arguments...) = nullptr;
    static Result Count(Arguments... arguments) {
        ++calls;
        return original(arguments...);
    }
    static void Install(const char* name) {
        sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
        const sqlite3_syscall_ptr found = vfs->xGetSystemCall(vfs, name);
        if (!found || original) return;
        original = reinterpret_cast<Result (*)(Arguments...)>(found);
        vfs->xSetSystemCall(vfs, name, reinterpret_cast<sqlite3_syscall_ptr>(&Count));
    }
};

static void CountCalls() {
    Counted<0, int (*)(const char*, int, int)>::Install("open");
    Counted<1, int (*)(int)>::Install("close");
    Counted<2, int (*)(const char*, int)>::Install("access");
    Counted<3, int (*)(const char*, struct stat*)>::Install("stat");
    Counted<4, int (*)(const char*, struct stat*)>::Install("lstat");
    Counted<5, int (*)(int, struct stat*)>::Install("fstat");
    Counted<6, int (*)(int, int, void*)>::Install("fcntl");
    Counted<7, ssize_t (*)(int, void*, size_t)>::Install("read");
    Counted<8, ssize_t (*)(int, void*, size_t, off_t)>::Install("pread");
    Counted<9, ssize_t (*)(int, void*, size_t, off_t)>::Install("pread64");
    Counted<10, ssize_t (*)(int, const void*, size_t)>::Install("write");
    Counted<11, ssize_t (*)(int, const void*, size_t, off_t)>::Install("pwrite");
    Counted<12, ssize_t (*)(int, const void*, size_t, off_t)>::Install("pwrite64");
    Counted<13, int (*)(int, off_t)>::Install("ftruncate");
    Counted<14, int (*)(const char*)>::Install("unlink");
}

int SqliteCallsMade() {
    return std::exchange(calls, 0);
}

static void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "sqlite: %s failed\n", what);
    std::exit(1);
}

namespace {

struct Connection {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;

    Connection(const std::string& path, const char* sql) {
        Require(sqlite3_open(path.c_str(), &database) == SQLITE_OK, "open");
        Prepare(sql);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() {
        sqlite3_finalize(statement);
        sqlite3_close(database);
    }
    void Prepare(const char* sql) {
        Require(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    }
    void BindDisc(const Disc& disc) const {
        const std::vector<uint8_t> entry = EncodeEntry(disc.toc, disc.fields, 0);
        sqlite3_bind_int64(statement, 1, DiscKey(disc.toc.lengthSeconds[0], disc.toc.totalSeconds));
        sqlite3_bind_blob(statement, 2, entry.data(), static_cast<int>(entry.size()),
                          SQLITE_TRANSIENT);
    }
};

}  // namespace

static const char* const kInsert = "INSERT INTO disc(key, entry) VALUES(?, ?)";

void SqliteCreate(const std::string& path, const std::vector<Disc>& discs) {
    CountCalls();
    std::remove(path.c_str());
    sqlite3* database = nullptr;
    Require(sqlite3_open(path.c_str(), &database) == SQLITE_OK, "open");
    const char* const schema =
        "CREATE TABLE disc(number INTEGER PRIMARY KEY, key INTEGER, entry BLOB);"
        "CREATE INDEX disc_key ON disc(key);";
    Require(sqlite3_exec(database, schema, nullptr, nullptr, nullptr) == SQLITE_OK, "schema");
    sqlite3_close(database);

    Connection connection(path, kInsert);
    sqlite3_exec(connection.database, "BEGIN", nullptr, nullptr, nullptr);
    for (const Disc& disc : discs) {
        connection.BindDisc(disc);
        Require(sqlite3_step(connection.statement) == SQLITE_DONE, "insert");
        sqlite3_reset(connection.statement);
    }
    sqlite3_exec(connection.database, "COMMIT", nullptr, nullptr, nullptr);
}

std::string SqliteTitle(const std::string& path, const DiscToc& toc) {
    const Connection connection(path, "SELECT entry FROM disc WHERE key = ? ORDER BY number");
    sqlite3_bind_int64(connection.statement, 1, DiscKey(toc.lengthSeconds[0], toc.totalSeconds));
    while (sqlite3_step(connection.statement) == SQLITE_ROW) {
        DiscToc stored;
        EntryFields fields;
        DecodeEntry(static_cast<const uint8_t*>(sqlite3_column_blob(connection.statement, 0)),
                    static_cast<size_t>(sqlite3_column_bytes(connection.statement, 0)), stored,
                    fields);
        if (stored.trackCount == toc.trackCount &&
            std::equal(toc.lengthSeconds, toc.lengthSeconds + kMaxTracks, stored.lengthSeconds)) {
            return fields.artist + " - " + fields.discName;
        }
    }
    return {};
}

void SqliteAppend(const std::string& path, const Disc& disc) {
    const Connection connection(path, kInsert);
    connection.BindDisc(disc);
    Require(sqlite3_step(connection.statement) == SQLITE_DONE, "insert");
}

void SqliteDelete(const std::string& path, int64_t number) {
    const Connection connection(path, "DELETE FROM disc WHERE number = ?");
    sqlite3_bind_int64(connection.statement, 1, number);
    Require(sqlite3_step(connection.statement) == SQLITE_DONE, "delete");
}
