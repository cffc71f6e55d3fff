#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win32/kernel/kernel_object.h"
#include "platform/win32/kernel/path.h"
#include "platform/win32/kernel/program_search.h"
#include "platform/win32/kernel/text_compare.h"

using namespace winbase;

namespace winbase {
namespace {

/// A loaded module: the program, the layer under one of the system's names, or a loaded library.
struct Module : KernelObject {
    HMODULE handle = nullptr;
    std::string name;  ///< file name alone, GBK
    std::string host;  ///< full name in the file system
    void* library = nullptr;
    int uses = 0;           ///< LoadLibrary calls without FreeLibrary
    bool built_in = false;  ///< the program and the layer, which are not counted
    bool pinned = false;    ///< stays when its uses have ended
};
using ModulePointer = std::shared_ptr<Module>;

ElfW(Addr) BaseOf(const Module& module) {
    struct link_map* map = nullptr;
    return dlinfo(module.library, RTLD_DI_LINKMAP, &map) == 0 ? map->l_addr : 0;
}

constexpr std::array<std::string_view, 8> kSystemModules = {
    "kernel32.dll", "user32.dll",   "gdi32.dll", "msimg32.dll",
    "comctl32.dll", "comdlg32.dll", "ole32.dll", "riched20.dll"};

class Modules {
public:
    Modules() {
        AddBuiltIn("", RunningProgram(), dlopen(nullptr, RTLD_LAZY));
        Dl_info self = {};
        dladdr(reinterpret_cast<const void*>(&::LoadLibraryA), &self);
        const std::string layer = std::filesystem::absolute(self.dli_fname);
        for (const std::string_view name : kSystemModules) {
            AddBuiltIn(name, layer, dlopen(self.dli_fname, RTLD_LAZY));
        }
    }

    HMODULE program() const { return modules_.front()->handle; }

    HMODULE FindByName(std::string_view name) const {
        for (const ModulePointer& module : modules_) {
            if (!module->name.empty() && EqualNoCase(module->name, name)) return module->handle;
        }
        return nullptr;
    }

    /// The module that was loaded at this place. A library that came by another way than
    /// LoadLibrary stays from now on, as nothing would tell when it goes.
    HMODULE FindByMap(const link_map* map) {
        for (const ModulePointer& module : modules_) {
            if (BaseOf(*module) == map->l_addr) return module->handle;
        }
        void* library = dlopen(map->l_name, RTLD_LAZY | RTLD_NOLOAD);
        if (!library) return nullptr;
        const bool on_its_way_in = loading_ == map->l_name;
        const ModulePointer module = AddLibrary(library, std::filesystem::absolute(map->l_name));
        if (module) module->pinned = !on_its_way_in;
        if (!module || on_its_way_in) dlclose(library);
        return module ? module->handle : nullptr;
    }

    HMODULE Load(const std::string& host) {
        // The library's initialisers may load others and ask for modules by address.
        const std::string outer = std::exchange(loading_, host);
        void* library = dlopen(host.c_str(), RTLD_NOW | RTLD_LOCAL);
        loading_ = outer;
        if (!library) {
            SetLastError(ERROR_BAD_EXE_FORMAT);
            return nullptr;
        }
        const auto found = std::find_if(
            modules_.begin(), modules_.end(),
            [library](const ModulePointer& m) { return m->library == library && !m->built_in; });
        const ModulePointer module = found != modules_.end() ? *found : AddLibrary(library, host);
        if (!module) {
            dlclose(library);
            return nullptr;
        }
        ++module->uses;
        return module->handle;
    }

    void Release(const ModulePointer& module) {
        if (module->uses == 0) return;
        --module->uses;
        if (module->uses == 0 && !module->pinned) {
            RemoveObject(module->handle);
            std::erase(modules_, module);
        }
        dlclose(module->library);
    }

private:
    void AddBuiltIn(std::string_view name, const std::string& host, void* library) {
        const ModulePointer module = Add(library, host);
        module->name = name;
        module->built_in = true;
    }

    ModulePointer AddLibrary(void* library, const std::string& host) {
        ModulePointer module = Add(library, host);
        if (!module) return nullptr;
        const std::string full = WindowsPath(host);
        module->name = full.substr(full.rfind('\\') + 1);
        return module;
    }

    ModulePointer Add(void* library, const std::string& host) {
        auto module = std::make_shared<Module>();
        module->library = library;
        module->host = host;
        module->handle = static_cast<HMODULE>(AddObject(module));
        if (!module->handle) return nullptr;
        modules_.push_back(module);
        return module;
    }

    std::vector<ModulePointer> modules_;
    std::string loading_;  ///< the innermost library that is being loaded
};

/// Recursive for the initialisers of a library, which run while it is loaded.
std::recursive_mutex& ModulesMutex() {
    static std::recursive_mutex mutex;
    return mutex;
}

/// Only under the mutex. Never destroyed: libraries ask for modules while the program ends.
Modules& TheModules() {
    static Modules& modules = *new Modules;
    return modules;
}

/// The name with the extension that a name without one gets.
std::string WithExtension(LPCSTR name) {
    std::string full = name;
    const std::size_t separator = full.find_last_of("\\/");
    const std::size_t dot = full.rfind('.');
    const bool has_dot = dot != full.npos && (separator == full.npos || dot > separator);
    return has_dot ? full : full + ".dll";
}

bool Exists(const std::string& host) {
    std::error_code error;
    return !host.empty() && std::filesystem::is_regular_file(host, error);
}

/// A bare name is looked for beside the program first, then in the current folder.
std::string FindLibrary(const std::string& name) {
    if (IsBareName(name.c_str())) {
        const auto folder = std::filesystem::path(RunningProgram()).parent_path();
        std::string beside = HostPath((WindowsPath(folder.native() + '/') + name).c_str());
        if (Exists(beside)) return beside;
    }
    const std::string host = HostPath(name.c_str());
    return Exists(host) ? std::string(std::filesystem::absolute(host)) : std::string();
}

HMODULE FailModule(DWORD error) {
    SetLastError(error);
    return nullptr;
}

}  // namespace
}  // namespace winbase

HMODULE GetModuleHandleA(LPCSTR name) {
    const std::lock_guard lock(ModulesMutex());
    if (!name) return TheModules().program();
    const HMODULE found = TheModules().FindByName(WithExtension(name));
    return found ? found : FailModule(ERROR_MOD_NOT_FOUND);
}

BOOL GetModuleHandleExA([[maybe_unused]] DWORD flags, LPCSTR inside, HMODULE* module) {
    assert(flags == (GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                     GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT) &&
           "a module is asked for by address only, and not kept");
    if (!module) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::lock_guard lock(ModulesMutex());
    Dl_info info = {};
    link_map* owner = nullptr;
    const bool known =
        dladdr1(inside, &info, reinterpret_cast<void**>(&owner), RTLD_DL_LINKMAP) != 0;
    *module = known ? TheModules().FindByMap(owner) : nullptr;
    if (!*module) SetLastError(ERROR_MOD_NOT_FOUND);
    return *module != nullptr;
}

HMODULE LoadLibraryA(LPCSTR name) {
    if (!name || *name == '\0') return FailModule(ERROR_INVALID_PARAMETER);
    const std::lock_guard lock(ModulesMutex());
    const std::string full = WithExtension(name);
    for (const std::string_view system : kSystemModules) {
        if (EqualNoCase(full, system)) return TheModules().FindByName(system);
    }
    const std::string host = FindLibrary(full);
    return host.empty() ? FailModule(ERROR_MOD_NOT_FOUND) : TheModules().Load(host);
}

BOOL FreeLibrary(HMODULE module) {
    const std::lock_guard lock(ModulesMutex());
    const auto found = FindObject<Module>(module);
    if (!found) return FALSE;
    TheModules().Release(found);
    return TRUE;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name) {
    const std::lock_guard lock(ModulesMutex());
    TheModules();
    const auto found = FindObject<Module>(module);
    if (!found) return nullptr;
    const auto fail = []() -> FARPROC {
        SetLastError(ERROR_PROC_NOT_FOUND);
        return nullptr;
    };
    // A number instead of a name: nothing here is exported by number.
    if (reinterpret_cast<ULONG_PTR>(name) < 0x10000) return fail();
    void* address = dlsym(found->library, name);
    // The loader looks in the libraries beneath as well; those are other modules.
    Dl_info info = {};
    link_map* owner = nullptr;
    if (!address || dladdr1(address, &info, reinterpret_cast<void**>(&owner), RTLD_DL_LINKMAP) == 0)
        return fail();
    if (owner->l_addr != BaseOf(*found)) return fail();
    return reinterpret_cast<FARPROC>(address);
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size) {
    const std::lock_guard lock(ModulesMutex());
    const HMODULE handle = module ? module : TheModules().program();
    const auto found = std::dynamic_pointer_cast<Module>(FindAnyObject(handle));
    if (!found) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    if (!buffer || size == 0) return 0;
    const std::string name = WindowsPath(found->host);
    const std::size_t length = std::min<std::size_t>(name.size(), size - 1);
    std::memcpy(buffer, name.data(), length);
    buffer[length] = '\0';
    if (length == name.size()) return static_cast<DWORD>(length);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}
