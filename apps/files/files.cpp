#include "files/files.h"

#include "common/wide_text_buffer.h"
#include "process/profile.h"

namespace halyard {

namespace {

// `Find` has First and Next of one kind of text, and the name that they found as a narrow text of the system.
template <typename Find>
void ForEach(const typename Find::Char* pattern, const std::function<void(const char* name, bool isFolder)>& found) {
    typename Find::Data data;
    const HANDLE search = Find::First(pattern, data);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::string name = Find::Name(data);
        if (name != "." && name != "..") found(name.c_str(), (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
    } while (Find::Next(search, data));
    FindClose(search);
}

struct FindNarrow {
    using Char = char;
    using Data = WIN32_FIND_DATAA;
    static HANDLE First(const char* pattern, Data& data) { return FindFirstFileA(pattern, &data); }
    static BOOL Next(HANDLE search, Data& data) { return FindNextFileA(search, &data); }
    static std::string Name(const Data& data) { return data.cFileName; }
};

struct FindWide {
    using Char = wchar_t;
    using Data = WIN32_FIND_DATAW;
    static HANDLE First(const wchar_t* pattern, Data& data) { return FindFirstFileW(pattern, &data); }
    static BOOL Next(HANDLE search, Data& data) { return FindNextFileW(search, &data); }
    static std::string Name(const Data& data) { return Narrow(data.cFileName).Text(); }
};

}  // namespace

std::string OwnFolder() {
    const ModulePath own(nullptr);
    return {static_cast<const char*>(own.text), own.FileName()};
}

bool FileExists(const std::string& path) noexcept {
    const DWORD attributes =
        TakesWideText() ? GetFileAttributesW(WideTextBuffer(path.c_str()).Text()) : GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES;
}

void ForEachEntry(const std::string& folder, const std::function<void(const char* name, bool isFolder)>& found) {
    const std::string pattern = folder + "*";
    if (TakesWideText())
        ForEach<FindWide>(WideTextBuffer(pattern.c_str()).Text(), found);
    else
        ForEach<FindNarrow>(pattern.c_str(), found);
}

void RemoveFile(const std::string& path) noexcept {
    TakesWideText() ? DeleteFileW(WideTextBuffer(path.c_str()).Text()) : DeleteFileA(path.c_str());
}

void RemoveEmptyFolder(const std::string& path) noexcept {
    TakesWideText() ? RemoveDirectoryW(WideTextBuffer(path.c_str()).Text()) : RemoveDirectoryA(path.c_str());
}

}  // namespace halyard
