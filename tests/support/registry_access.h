// The registry as the tests prepare it and look at it, past the library's own ways.
#pragma once

#include "common/win_types.h"

#include <optional>
#include <string>
#include <vector>

namespace halyard::test {

using Bytes = std::string;
using Names = std::vector<std::string>;

// The product's key, or the key `below` it.
std::string ProductPath(const std::string& below = "");
// The key of this program below the product's.
std::string AppPath();

bool KeyExists(HKEY hive, const std::string& path);
void MakeKey(HKEY hive, const std::string& path);
// With all that is below it.
void DeleteTree(HKEY hive, const std::string& path);

void Store(HKEY hive, const std::string& path, const char* name, DWORD type, const Bytes& bytes);
void StoreDword(HKEY hive, const std::string& path, const char* name, DWORD value);
// As it stands there; nothing for a value that is missing or of another type.
std::optional<DWORD> StoredDword(HKEY hive, const std::string& path, const char* name);
std::optional<Bytes> StoredText(HKEY hive, const std::string& path, const char* name);  // the closing zero included

Names Subkeys(HKEY hive, const std::string& path);
Names ValueNames(HKEY hive, const std::string& path);

// Leaves everybody no more than reading; the key can still be deleted.
void Restrict(HKEY hive, const std::string& path);

// This thread goes on without the rights of an administrator.
class AsOrdinaryUser {
public:
    AsOrdinaryUser();
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
    ~AsOrdinaryUser() { SetThreadToken(nullptr, nullptr); }
};

}  // namespace halyard::test
