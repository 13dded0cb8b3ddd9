#include "support/registry_access.h"

#include "settings/registry_key.h"
#include "settings/store.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <shlwapi.h>

namespace halyard::test {

namespace {

using NameFn = LSTATUS(WINAPI*)(HKEY, DWORD, char*, DWORD*);

Names AllNames(HKEY hive, const std::string& path, NameFn nameAt) {
    Names names;
    RegistryKey key;
    if (!key.Open(hive, path.c_str(), KEY_READ)) return names;
    char name[261];
    for (DWORD index = 0, size = sizeof(name); nameAt(key.get(), index, name, &size) == ERROR_SUCCESS;
         ++index, size = sizeof(name))
        names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<Bytes> StoredBytes(HKEY hive, const std::string& path, const char* name, DWORD wanted) {
    Bytes bytes(1024, '\0');
    DWORD type = 0;
    auto size = static_cast<DWORD>(bytes.size());
    if (SHGetValueA(hive, path.c_str(), name, &type, bytes.data(), &size) || type != wanted) return std::nullopt;
    return bytes.substr(0, size);
}

}  // namespace

std::string ProductPath(const std::string& below) {
    return ProductKey + below;
}

std::string AppPath() {
    return ProductPath("AppMem\\") + AppKeyName();
}

bool KeyExists(HKEY hive, const std::string& path) {
    return RegistryKey().Open(hive, path.c_str(), KEY_READ);
}

void MakeKey(HKEY hive, const std::string& path) {
    EXPECT_TRUE(RegistryKey().Create(hive, path.c_str())) << path;
}

void DeleteTree(HKEY hive, const std::string& path) {
    for (const std::string& name : Subkeys(hive, path))
        DeleteTree(hive, path + "\\" + name);
    RegDeleteKeyA(hive, path.c_str());
}

void Store(HKEY hive, const std::string& path, const char* name, DWORD type, const Bytes& bytes) {
    // The platform looks behind the bytes and closes a text for whom it finds a zero there.
    const Bytes room = bytes + 'x';
    EXPECT_EQ(0, SHSetValueA(hive, path.c_str(), name, type, room.data(), static_cast<DWORD>(bytes.size()))) << path;
}

void StoreDword(HKEY hive, const std::string& path, const char* name, DWORD value) {
    Store(hive, path, name, REG_DWORD, Bytes(reinterpret_cast<const char*>(&value), sizeof(value)));
}

std::optional<DWORD> StoredDword(HKEY hive, const std::string& path, const char* name) {
    const auto bytes = StoredBytes(hive, path, name, REG_DWORD);
    return bytes ? std::optional(*reinterpret_cast<const DWORD*>(bytes->data())) : std::nullopt;
}

std::optional<Bytes> StoredText(HKEY hive, const std::string& path, const char* name) {
    return StoredBytes(hive, path, name, REG_SZ);
}

Names Subkeys(HKEY hive, const std::string& path) {
    return AllNames(hive, path, [](HKEY key, DWORD index, char* name, DWORD* size) WINAPI {
        return RegEnumKeyExA(key, index, name, size, nullptr, nullptr, nullptr, nullptr);
    });
}

Names ValueNames(HKEY hive, const std::string& path) {
    return AllNames(hive, path, [](HKEY key, DWORD index, char* name, DWORD* size) WINAPI {
        return RegEnumValueA(key, index, name, size, nullptr, nullptr, nullptr, nullptr);
    });
}

void Restrict(HKEY hive, const std::string& path) {
    alignas(DWORD) BYTE room[128];
    auto* list = reinterpret_cast<ACL*>(room);
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID everybody = nullptr;
    AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everybody);
    InitializeAcl(list, sizeof(room), ACL_REVISION);
    AddAccessAllowedAce(list, ACL_REVISION, KEY_READ | DELETE | WRITE_DAC, everybody);
    SECURITY_DESCRIPTOR descriptor;
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
    RegistryKey key;
    EXPECT_TRUE(key.Open(hive, path.c_str(), WRITE_DAC)) << path;
    RegSetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, &descriptor);
    FreeSid(everybody);
    ASSERT_FALSE(RegistryKey().Open(hive, path.c_str(), KEY_ALL_ACCESS)) << "the platform does not enforce it";
}

AsOrdinaryUser::AsOrdinaryUser() {
    alignas(DWORD) BYTE room[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof(room);
    SID_AND_ATTRIBUTES administrators = {room, 0};
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, room, &size);
    HANDLE own = nullptr;
    HANDLE lesser = nullptr;
    HANDLE worn = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own);
    CreateRestrictedToken(own, 0, 1, &administrators, 0, nullptr, 0, nullptr, &lesser);
    DuplicateTokenEx(lesser, MAXIMUM_ALLOWED, nullptr, SecurityImpersonation, TokenImpersonation, &worn);
    EXPECT_TRUE(SetThreadToken(nullptr, worn)) << GetLastError();
    for (HANDLE handle : {own, lesser, worn})
        CloseHandle(handle);
}

}  // namespace halyard::test
