#include "shell/record.h"

namespace standin {

namespace {

class Key {
public:
    Key() { RegCreateKeyExA(HKEY_CURRENT_USER, StandInKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr); }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { RegCloseKey(key); }
    HKEY get() const { return key; }

private:
    HKEY key = nullptr;
};

}  // namespace

void Log(const std::string& line) {
    WriteText(LogValue, ReadText(LogValue) + line + "\n");
}

std::string ReadText(const char* name) {
    const Key key;
    DWORD size = 0;
    if (RegQueryValueExA(key.get(), name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) return {};
    std::string text(size, 0);
    RegQueryValueExA(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size);
    return text.c_str();
}

std::wstring ReadWideText(const wchar_t* name) {
    const Key key;
    DWORD size = 0;
    if (RegQueryValueExW(key.get(), name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) return {};
    std::wstring text(size / sizeof(wchar_t) + 1, 0);
    RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size);
    return text.c_str();
}

DWORD ReadNumber(const char* name) {
    const Key key;
    DWORD number = 0;
    DWORD size = sizeof(number);
    RegQueryValueExA(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
    return number;
}

void WriteText(const char* name, const std::string& text) {
    const Key key;
    RegSetValueExA(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>(text.size() + 1));
}

void WriteWideText(const wchar_t* name, const std::wstring& text) {
    const Key key;
    RegSetValueExW(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void WriteNumber(const char* name, DWORD number) {
    const Key key;
    RegSetValueExA(key.get(), name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof(number));
}

}  // namespace standin
