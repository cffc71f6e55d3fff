#include "tests/papercore/store/watched_disk.h"

#include <new>

namespace papercore_tests {
namespace {

using Step = WatchedDisk::Step;

struct OpenFile {
    sqlite3_file base{};  // first: SQLite knows this part only
    WatchedDisk* disk = nullptr;
    sqlite3_file* system = nullptr;  ///< behind this struct, in the room that SQLite gave
};

OpenFile& Of(sqlite3_file* file) { return *reinterpret_cast<OpenFile*>(file); }
WatchedDisk& Disk(sqlite3_vfs* vfs) { return *static_cast<WatchedDisk*>(vfs->pAppData); }

/// The file as the system has it.
struct Below {
    explicit Below(sqlite3_file* watched) : file(Of(watched).system), does(*file->pMethods) {}
    sqlite3_file* file;
    const sqlite3_io_methods& does;
};

int Close(sqlite3_file* file) {
    const Below below(file);
    return below.does.xClose(below.file);
}

int Read(sqlite3_file* file, void* into, int size, sqlite3_int64 offset) {
    const Below below(file);
    return below.does.xRead(below.file, into, size, offset);
}

int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    const Below below(file);
    WatchedDisk& disk = *Of(file).disk;
    const int result = disk.Begin(Step::kWrite);
    if (result != SQLITE_OK) {
        below.does.xWrite(below.file, bytes, size / 2, offset);
        return result;
    }
    return disk.Done(below.does.xWrite(below.file, bytes, size, offset));
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    const Below below(file);
    WatchedDisk& disk = *Of(file).disk;
    const int result = disk.Begin(Step::kTruncate);
    return result != SQLITE_OK ? result : disk.Done(below.does.xTruncate(below.file, size));
}

int Sync(sqlite3_file* file, int flags) {
    const Below below(file);
    WatchedDisk& disk = *Of(file).disk;
    const int result = disk.Begin(Step::kSync);
    if (result != SQLITE_OK) return result;
    return disk.Done(disk.syncs ? below.does.xSync(below.file, flags) : SQLITE_OK);
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    const Below below(file);
    return below.does.xFileSize(below.file, size);
}

int Lock(sqlite3_file* file, int level) {
    const Below below(file);
    return below.does.xLock(below.file, level);
}

int Unlock(sqlite3_file* file, int level) {
    const Below below(file);
    return below.does.xUnlock(below.file, level);
}

int IsReserved(sqlite3_file* file, int* answer) {
    const Below below(file);
    return below.does.xCheckReservedLock(below.file, answer);
}

int Control(sqlite3_file* file, int operation, void* argument) {
    const Below below(file);
    return below.does.xFileControl(below.file, operation, argument);
}

int SectorSize(sqlite3_file* file) {
    const Below below(file);
    return below.does.xSectorSize(below.file);
}

int Abilities(sqlite3_file* file) {
    const Below below(file);
    return below.does.xDeviceCharacteristics(below.file);
}

const sqlite3_io_methods kMethods = [] {
    sqlite3_io_methods methods{};
    methods.iVersion = 1;  // without shared memory: an account file is one program's
    methods.xClose = Close;
    methods.xRead = Read;
    methods.xWrite = Write;
    methods.xTruncate = Truncate;
    methods.xSync = Sync;
    methods.xFileSize = FileSize;
    methods.xLock = Lock;
    methods.xUnlock = Unlock;
    methods.xCheckReservedLock = IsReserved;
    methods.xFileControl = Control;
    methods.xSectorSize = SectorSize;
    methods.xDeviceCharacteristics = Abilities;
    return methods;
}();

int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* out_flags) {
    WatchedDisk& disk = Disk(vfs);
    sqlite3_vfs& system = disk.System();
    file->pMethods = nullptr;
    int exists = 0;
    if (name) system.xAccess(&system, name, SQLITE_ACCESS_EXISTS, &exists);
    const bool makes = exists == 0 && (flags & SQLITE_OPEN_CREATE) != 0;
    int result = makes ? disk.Begin(Step::kMake) : SQLITE_OK;
    if (result != SQLITE_OK) return result;
    OpenFile& opened = *new (file) OpenFile;
    opened.disk = &disk;
    opened.system = reinterpret_cast<sqlite3_file*>(&opened + 1);
    result = system.xOpen(&system, name, opened.system, flags, out_flags);
    if (opened.system->pMethods) opened.base.pMethods = &kMethods;
    return makes ? disk.Done(result) : result;
}

int Delete(sqlite3_vfs* vfs, const char* name, int sync) {
    WatchedDisk& disk = Disk(vfs);
    const int result = disk.Begin(Step::kDelete);
    if (result != SQLITE_OK) return result;
    return disk.Done(disk.System().xDelete(&disk.System(), name, disk.syncs ? sync : 0));
}

int Access(sqlite3_vfs* vfs, const char* name, int flags, int* answer) {
    sqlite3_vfs& system = Disk(vfs).System();
    return system.xAccess(&system, name, flags, answer);
}

int FullName(sqlite3_vfs* vfs, const char* name, int size, char* full) {
    sqlite3_vfs& system = Disk(vfs).System();
    return system.xFullPathname(&system, name, size, full);
}

}  // namespace

WatchedDisk::WatchedDisk() : system_(sqlite3_vfs_find(nullptr)) {
    vfs_ = *system_;  // its clock, its chance
    vfs_.iVersion = 1;
    vfs_.szOsFile = static_cast<int>(sizeof(OpenFile)) + system_->szOsFile;
    vfs_.pNext = nullptr;
    vfs_.zName = "watched_disk";
    vfs_.pAppData = this;
    vfs_.xOpen = papercore_tests::Open;
    vfs_.xDelete = papercore_tests::Delete;
    vfs_.xAccess = Access;
    vfs_.xFullPathname = FullName;
    sqlite3_vfs_register(&vfs_, 1);
}

WatchedDisk::~WatchedDisk() {
    sqlite3_vfs_unregister(&vfs_);
    sqlite3_vfs_register(system_, 1);
}

int WatchedDisk::Begin(Step step) {
    ++steps_;
    return before ? before(step, steps_) : SQLITE_OK;
}

int WatchedDisk::Done(int result) const {
    if (after) after(steps_);
    return result;
}

}  // namespace papercore_tests
