#include "registry_access.h"

#include "process/registry_key.h"
#include "process/store.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace halyard::test {

namespace {

std::optional<Bytes> StoredBytes(HKEY hive, const std::string& path, const char* name, DWORD wanted) {
    RegistryKey key;
    if (!key.Open(hive, path.c_str(), KEY_READ)) return std::nullopt;
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExA(key.get(), name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS || type != wanted)
        return std::nullopt;
    Bytes bytes(size, '\0');
    RegQueryValueExA(key.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
    return bytes;
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
    RegistryKey key;
    key.Create(hive, path.c_str());
    // The platform looks behind the bytes and closes a text for whom it finds a zero there.
    const Bytes room = bytes + 'x';
    EXPECT_EQ(ERROR_SUCCESS, RegSetValueExA(key.get(), name, 0, type, reinterpret_cast<const BYTE*>(room.data()),
                                            static_cast<DWORD>(bytes.size())))
        << path << " " << name;
}

void StoreDword(HKEY hive, const std::string& path, const char* name, DWORD value) {
    Store(hive, path, name, REG_DWORD, Bytes(reinterpret_cast<const char*>(&value), sizeof(value)));
}

std::optional<DWORD> StoredDword(HKEY hive, const std::string& path, const char* name) {
    const auto bytes = StoredBytes(hive, path, name, REG_DWORD);
    if (!bytes || bytes->size() != sizeof(DWORD)) return std::nullopt;
    DWORD value = 0;
    std::copy_n(bytes->data(), sizeof(value), reinterpret_cast<char*>(&value));
    return value;
}

std::optional<Bytes> StoredText(HKEY hive, const std::string& path, const char* name) {
    return StoredBytes(hive, path, name, REG_SZ);
}

Names Subkeys(HKEY hive, const std::string& path) {
    Names names;
    RegistryKey key;
    if (!key.Open(hive, path.c_str(), KEY_READ)) return names;
    char name[261];
    for (DWORD index = 0; key.SubkeyName(index, name); ++index)
        names.push_back(name);
    return names;
}

Names ValueNames(HKEY hive, const std::string& path) {
    Names names;
    RegistryKey key;
    if (!key.Open(hive, path.c_str(), KEY_READ)) return names;
    char name[261];
    for (DWORD index = 0, size = sizeof(name);
         RegEnumValueA(key.get(), index, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, size = sizeof(name))
        names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

void Restrict(HKEY hive, const std::string& path, REGSAM access) {
    alignas(DWORD) BYTE room[128];
    auto* list = reinterpret_cast<ACL*>(room);
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID everybody = nullptr;
    AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everybody);
    InitializeAcl(list, sizeof(room), ACL_REVISION);
    AddAccessAllowedAce(list, ACL_REVISION, access | DELETE | WRITE_DAC, everybody);
    SECURITY_DESCRIPTOR descriptor;
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
    RegistryKey key;
    EXPECT_TRUE(key.Open(hive, path.c_str(), WRITE_DAC)) << path;
    EXPECT_EQ(ERROR_SUCCESS, RegSetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, &descriptor)) << path;
    FreeSid(everybody);
    ASSERT_FALSE(RegistryKey().Open(hive, path.c_str(), KEY_ALL_ACCESS)) << "the platform does not enforce it";
}

AsOrdinaryUser::AsOrdinaryUser() {
    SID_IDENTIFIER_AUTHORITY system = {{0, 0, 0, 0, 0, 5}};  // SECURITY_NT_AUTHORITY
    SID_AND_ATTRIBUTES administrators = {};
    AllocateAndInitializeSid(&system, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0, 0, 0,
                             &administrators.Sid);
    HANDLE own = nullptr;
    HANDLE lesser = nullptr;
    HANDLE worn = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own);
    CreateRestrictedToken(own, 0, 1, &administrators, 0, nullptr, 0, nullptr, &lesser);
    DuplicateTokenEx(lesser, MAXIMUM_ALLOWED, nullptr, SecurityImpersonation, TokenImpersonation, &worn);
    EXPECT_TRUE(SetThreadToken(nullptr, worn)) << GetLastError();
    for (HANDLE handle : {own, lesser, worn})
        CloseHandle(handle);
    FreeSid(administrators.Sid);
}

AsOrdinaryUser::~AsOrdinaryUser() {
    SetThreadToken(nullptr, nullptr);
}

}  // namespace halyard::test
