#include "tests/papercore/store/cut_disk.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace papercore_tests {
namespace {

constexpr std::size_t kSector = 512;

struct OpenFile {
    sqlite3_file base{};  // first: SQLite knows this part only
    CutDisk* disk = nullptr;
    CutDisk::FileRef file;
};

OpenFile& Of(sqlite3_file* file) { return *reinterpret_cast<OpenFile*>(file); }
CutDisk& Disk(sqlite3_vfs* vfs) { return *static_cast<CutDisk*>(vfs->pAppData); }
std::string Name(const char* name) { return name ? name : ""; }

int Close(sqlite3_file* file) {
    Of(file).~OpenFile();
    return SQLITE_OK;
}

int Read(sqlite3_file* file, void* into, int size, sqlite3_int64 offset) {
    if (Of(file).disk->IsCut()) return SQLITE_IOERR_READ;
    const std::string& content = Of(file).file->content;
    const auto wanted = static_cast<std::size_t>(size);
    const std::size_t at = std::min(static_cast<std::size_t>(offset), content.size());
    const std::size_t there = std::min(wanted, content.size() - at);
    std::memset(into, 0, wanted);
    std::memcpy(into, content.data() + at, there);
    return there == wanted ? SQLITE_OK : SQLITE_IOERR_SHORT_READ;
}

int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    CutDisk::Change change;
    change.at = static_cast<std::size_t>(offset);
    change.bytes.assign(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    const bool done = Of(file).disk->Write(*Of(file).file, std::move(change));
    return done ? SQLITE_OK : SQLITE_IOERR_WRITE;
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    CutDisk::Change change;
    change.at = static_cast<std::size_t>(size);
    change.cuts_off = true;
    const bool done = Of(file).disk->Write(*Of(file).file, std::move(change));
    return done ? SQLITE_OK : SQLITE_IOERR_TRUNCATE;
}

int Sync(sqlite3_file* file, int) {
    return Of(file).disk->Sync(*Of(file).file) ? SQLITE_OK : SQLITE_IOERR_FSYNC;
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    *size = static_cast<sqlite3_int64>(Of(file).file->content.size());
    return SQLITE_OK;
}

// One program at a time: the tests for files in use run on the system's files.
int Lock(sqlite3_file*, int) { return SQLITE_OK; }
int IsReserved(sqlite3_file*, int* answer) {
    *answer = 0;
    return SQLITE_OK;
}
int Control(sqlite3_file*, int, void*) { return SQLITE_NOTFOUND; }
int SectorSize(sqlite3_file*) { return 4096; }
// What SQLite believes of real files on this system.
int Abilities(sqlite3_file*) { return SQLITE_IOCAP_POWERSAFE_OVERWRITE; }

const sqlite3_io_methods kMethods = [] {
    sqlite3_io_methods methods{};
    methods.iVersion = 1;
    methods.xClose = Close;
    methods.xRead = Read;
    methods.xWrite = Write;
    methods.xTruncate = Truncate;
    methods.xSync = Sync;
    methods.xFileSize = FileSize;
    methods.xLock = Lock;
    methods.xUnlock = Lock;
    methods.xCheckReservedLock = IsReserved;
    methods.xFileControl = Control;
    methods.xSectorSize = SectorSize;
    methods.xDeviceCharacteristics = Abilities;
    return methods;
}();

int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* out_flags) {
    file->pMethods = nullptr;
    CutDisk& disk = Disk(vfs);
    CutDisk::FileRef found = disk.Find(Name(name));
    if (!found && (flags & SQLITE_OPEN_CREATE) != 0) found = disk.Make(Name(name));
    if (!found) return SQLITE_CANTOPEN;
    OpenFile* opened = new (file) OpenFile;
    opened->disk = &disk;
    opened->file = std::move(found);
    opened->base.pMethods = &kMethods;
    if (out_flags) *out_flags = flags;
    return SQLITE_OK;
}

int Delete(sqlite3_vfs* vfs, const char* name, int sync) {
    if (!Disk(vfs).Find(Name(name))) return SQLITE_IOERR_DELETE_NOENT;
    return Disk(vfs).Delete(Name(name), sync != 0) ? SQLITE_OK : SQLITE_IOERR_DELETE;
}

int Access(sqlite3_vfs* vfs, const char* name, int, int* answer) {
    *answer = Disk(vfs).Find(Name(name)) ? 1 : 0;
    return SQLITE_OK;
}

int FullName(sqlite3_vfs*, const char* name, int size, char* full) {
    sqlite3_snprintf(size, full, "%s", name);
    return SQLITE_OK;
}

}  // namespace

CutDisk::CutDisk() : system_(sqlite3_vfs_find(nullptr)) {
    vfs_ = *system_;  // its clock, its chance
    vfs_.iVersion = 1;
    vfs_.szOsFile = sizeof(OpenFile);
    vfs_.pNext = nullptr;
    vfs_.zName = "cut_disk";
    vfs_.pAppData = this;
    vfs_.xOpen = papercore_tests::Open;
    vfs_.xDelete = papercore_tests::Delete;
    vfs_.xAccess = Access;
    vfs_.xFullPathname = FullName;
    sqlite3_vfs_register(&vfs_, 1);
}

CutDisk::~CutDisk() {
    sqlite3_vfs_unregister(&vfs_);
    sqlite3_vfs_register(system_, 1);
}

void CutDisk::CutAt(int operation) {
    operations_ = 0;
    cut_at_ = operation;
}

bool CutDisk::Step() {
    if (cut_) return false;
    ++operations_;
    cut_ = operations_ == cut_at_;
    return !cut_;
}

CutDisk::FileRef CutDisk::Find(const std::string& name) const {
    const auto found = files_.find(name);
    return found == files_.end() || found->second->deleted ? nullptr : found->second;
}

CutDisk::FileRef CutDisk::Make(const std::string& name) {
    if (!Step()) return nullptr;
    return files_[name] = std::make_shared<File>();
}

void CutDisk::Perform(std::string& content, const Change& change) {
    if (change.cuts_off) {
        content.resize(change.at);
        return;
    }
    content.resize(std::max(content.size(), change.at + change.bytes.size()));
    content.replace(change.at, change.bytes.size(), change.bytes);
}

bool CutDisk::Write(File& file, Change change) {
    if (!Step()) return false;
    Perform(file.content, change);
    file.unsynced.push_back(std::move(change));
    return true;
}

// The system's files sync the folder with the first sync of a file that they made.
bool CutDisk::Sync(File& file) {
    if (!Step()) return false;
    file.synced = file.content;
    file.unsynced.clear();
    file.name_synced = true;
    return true;
}

bool CutDisk::Delete(const std::string& name, bool synced) {
    if (!Step()) return false;
    if (synced) {
        files_.erase(name);
    } else {
        files_[name]->deleted = true;
    }
    return true;
}

/// Keeps some sectors of what was not synced.
void CutDisk::Tear(File& file) {
    std::string left = file.synced;
    for (const Change& change : file.unsynced) {
        if (change.cuts_off) {
            if (random_() % 2 == 0) Perform(left, change);
            continue;
        }
        for (std::size_t from = 0; from < change.bytes.size(); from += kSector) {
            if (random_() % 2 == 0) continue;
            Perform(left, {change.at + from, change.bytes.substr(from, kSector)});
        }
    }
    file.content = file.synced = std::move(left);
    file.unsynced.clear();
}

void CutDisk::Restart(unsigned seed) {
    random_.seed(seed);
    std::erase_if(files_, [this](const auto& entry) {
        const File& file = *entry.second;
        return (file.deleted || !file.name_synced) && random_() % 2 == 0;
    });
    for (const auto& [name, file] : files_) {
        Tear(*file);
        file->deleted = false;
        file->name_synced = true;
    }
    cut_ = false;
    CutAt(0);
}

}  // namespace papercore_tests
