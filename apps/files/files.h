// Files and folders whose paths may have any letters; paths and names are narrow texts of the system.
#pragma once

#include <functional>
#include <string>

namespace halyard {

// The folder that this program lies in, with its backslash.
std::string OwnFolder();

bool FileExists(const std::string& path) noexcept;

// Calls `found` for all that lies in a folder, whose path ends with a backslash.
void ForEachEntry(const std::string& folder, const std::function<void(const char* name, bool isFolder)>& found);

// What is in use stays; so does a folder that isn't empty.
void RemoveFile(const std::string& path) noexcept;
void RemoveEmptyFolder(const std::string& path) noexcept;

}  // namespace halyard
