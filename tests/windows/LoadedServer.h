#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <set>
#include <stdexcept>
#include <string>
#include <utility>

/// Veltro.dll from the tests' own folder, with its entry points and what its file says of itself.
class LoadedServer {
  public:
    LoadedServer() : module_(LoadLibraryW(path().c_str())) {
        if (!module_) {
            throw std::runtime_error("Veltro.dll cannot be loaded");
        }
    }
    LoadedServer(const LoadedServer&) = delete;
    LoadedServer& operator=(const LoadedServer&) = delete;
    ~LoadedServer() { FreeLibrary(module_); }

    static std::wstring path() {
        wchar_t file[MAX_PATH];
        GetModuleFileNameW(nullptr, file, MAX_PATH);
        std::wstring result = file;
        return result.replace(result.find_last_of(L'\\') + 1, std::wstring::npos, L"Veltro.dll");
    }

    HMODULE module() const { return module_; }

    HRESULT getClassObject(REFCLSID classId, REFIID id, void** object) const {
        return entry<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, id,
                                                                                              object);
    }
    HRESULT canUnloadNow() const { return call("DllCanUnloadNow"); }
    HRESULT registerServer() const { return call("DllRegisterServer"); }
    HRESULT unregisterServer() const { return call("DllUnregisterServer"); }

    std::set<std::string> exports() const {
        std::set<std::string> names;
        const auto* directory = at<IMAGE_EXPORT_DIRECTORY>(directoryAddress(IMAGE_DIRECTORY_ENTRY_EXPORT));
        const auto* addresses = at<DWORD>(directory->AddressOfNames);
        for (DWORD index = 0; index < directory->NumberOfNames; ++index) {
            names.insert(at<char>(addresses[index]));
        }
        return names;
    }

    /// Of all imports the DLL's name and the function's.
    std::set<std::pair<std::string, std::string>> imports() const {
        std::set<std::pair<std::string, std::string>> result;
        const auto* import = at<IMAGE_IMPORT_DESCRIPTOR>(directoryAddress(IMAGE_DIRECTORY_ENTRY_IMPORT));
        for (; import->Name != 0; ++import) {
            const auto* thunk = at<IMAGE_THUNK_DATA>(import->OriginalFirstThunk);
            for (; thunk->u1.AddressOfData != 0; ++thunk) {
                const auto* byName = at<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(thunk->u1.AddressOfData));
                result.emplace(at<char>(import->Name), reinterpret_cast<const char*>(byName->Name));
            }
        }
        return result;
    }

  private:
    template <class Function>
    Function entry(const char* name) const {
        const auto address = GetProcAddress(module_, name);
        if (!address) {
            throw std::runtime_error(std::string(name) + " is missing");
        }
        return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    }
    HRESULT call(const char* name) const { return entry<HRESULT(STDAPICALLTYPE*)()>(name)(); }

    template <class T>
    const T* at(DWORD offset) const {
        return reinterpret_cast<const T*>(reinterpret_cast<const char*>(module_) + offset);
    }
    DWORD directoryAddress(int directory) const {
        const auto* header = at<IMAGE_DOS_HEADER>(0);
        const auto* headers = at<IMAGE_NT_HEADERS>(static_cast<DWORD>(header->e_lfanew));
        return headers->OptionalHeader.DataDirectory[directory].VirtualAddress;
    }

    HMODULE module_;
};
