// Presets and results in the user's registry.
#pragma once

#include <string>
#include <windows.h>

namespace halyard::test {

// All keys below HKEY_CURRENT_USER.
void WriteNumber(const std::string& key, const char* name, DWORD number);
void WriteText(const std::string& key, const char* name, const std::string& text);
DWORD NumberOr(const std::string& key, const char* name, DWORD missing);
// Empty where there is none.
std::string TextOf(const std::string& key, const char* name);
void DeleteValue(const std::string& key, const char* name);
// With all below it.
void DeleteKey(const std::string& key);

// Keys of the product: one desktop's, one program's.
std::string DesktopKey(int id);
std::string ProgramKey(const std::string& path);

// While it lives, COM makes the class from the in-process library at `path`; then from whatever it was before.
class ClassRegistration {
public:
    ClassRegistration(const char* classId, const std::string& path);
    ClassRegistration(const ClassRegistration&) = delete;
    ClassRegistration& operator=(const ClassRegistration&) = delete;
    ~ClassRegistration();

private:
    std::string key;
    std::string before;
};

}  // namespace halyard::test
