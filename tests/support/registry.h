// The registry as the tests prepare it and look at it, past the library's own ways.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace halyard::test {

using Names = std::vector<std::string>;

// Keys lie below the user's hive where no other one is given.
void Store(const std::string& key, const char* name, DWORD type, const std::string& bytes,
           HKEY hive = HKEY_CURRENT_USER);
void WriteNumber(const std::string& key, const char* name, DWORD number, HKEY hive = HKEY_CURRENT_USER);
void WriteText(const std::string& key, const char* name, const std::string& text, HKEY hive = HKEY_CURRENT_USER);
DWORD NumberOr(const std::string& key, const char* name, DWORD missing, HKEY hive = HKEY_CURRENT_USER);
// Empty where there is none.
std::string BytesOf(const std::string& key, const char* name, HKEY hive = HKEY_CURRENT_USER);
std::string TextOf(const std::string& key, const char* name, HKEY hive = HKEY_CURRENT_USER);

void MakeKey(const std::string& key, HKEY hive = HKEY_CURRENT_USER);
// With all below it.
void DeleteKey(const std::string& key, HKEY hive = HKEY_CURRENT_USER);
// The names of the key's values, and those of its subkeys with a backslash after them, in their order.
Names NamesIn(const std::string& key, HKEY hive = HKEY_CURRENT_USER);

// Keys of the product: one desktop's, one program's.
std::string DesktopKey(int id);
std::string ProgramKey(const std::string& path);

// While it lives, COM makes the class from the in-process library at `path`; then from whatever it was before.
class ClassRegistration {
public:
    ClassRegistration(const char* classId, const std::string& path);
    ClassRegistration(const ClassRegistration&) = delete;
    ClassRegistration& operator=(const ClassRegistration&) = delete;
    ~ClassRegistration() { WriteText(key, nullptr, before, HKEY_CLASSES_ROOT); }

private:
    std::string key, before;
};

}  // namespace halyard::test
