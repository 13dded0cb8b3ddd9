#include "shell/record.h"

#include <shlwapi.h>

namespace standin {

std::string ReadText(const char* name) {
    char text[1024] = {};
    DWORD size = sizeof(text) - 1;
    SHGetValueA(HKEY_CURRENT_USER, StandInKey, name, nullptr, text, &size);
    return text;
}

DWORD ReadNumber(const char* name) {
    DWORD number = 0;
    DWORD size = sizeof(number);
    SHGetValueA(HKEY_CURRENT_USER, StandInKey, name, nullptr, &number, &size);
    return number;
}

void WriteText(const char* name, const std::string& text) {
    SHSetValueA(HKEY_CURRENT_USER, StandInKey, name, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1));
}

void WriteNumber(const char* name, DWORD number) {
    SHSetValueA(HKEY_CURRENT_USER, StandInKey, name, REG_DWORD, &number, sizeof(number));
}

}  // namespace standin
