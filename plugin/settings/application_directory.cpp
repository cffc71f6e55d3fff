#include "plugin/settings/application_directory.h"

#include "platform/system.h"

namespace {

struct RememberedDirectory {
    bool taken = false;
    std::string path;
};

RememberedDirectory& Remembered() {
    static RememberedDirectory remembered;
    return remembered;
}

std::string CurrentDirectory() {
    char path[MAX_PATH] = {};
    const DWORD length = GetCurrentDirectoryA(MAX_PATH, path);
    return length < MAX_PATH ? std::string(path, length) : std::string();
}

}  // namespace

void RememberApplicationDirectory() {
    RememberedDirectory& remembered = Remembered();
    if (remembered.taken) return;
    remembered.taken = true;
    remembered.path = CurrentDirectory();
}

const std::string& ApplicationDirectory() { return Remembered().path; }

void RestoreApplicationDirectory() {
    if (!ApplicationDirectory().empty()) SetCurrentDirectoryA(ApplicationDirectory().c_str());
}
