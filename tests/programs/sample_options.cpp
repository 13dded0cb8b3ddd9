#include "programs/sample_options.h"

#include "programs/sample_protocol.h"

#include <cstdio>
#include <cstdlib>

namespace sample {

namespace {

struct Flag {
    const char* text;
    bool Options::*member;
};

constexpr Flag Flags[] = {
    {"--threads", &Options::ownThreads}, {"--hidden", &Options::hidden}, {"--colour", &Options::colour}};

bool ReadFlag(const std::string& text, Options& options) {
    for (const Flag& flag : Flags) {
        if (text != flag.text) continue;
        options.*flag.member = true;
        return true;
    }
    return false;
}

// "left,top,width,height" in screen coordinates.
bool ReadPlace(const char* text, RECT& place) {
    int left, top, width, height;
    if (std::sscanf(text, "%d,%d,%d,%d", &left, &top, &width, &height) != 4) return false;
    place = {left, top, left + width, top + height};
    return true;
}

}  // namespace

bool ReadOptions(int count, char** arguments, Options& options) {
    options.title = DefaultTitle;
    options.windowClass = DefaultClass;
    for (int index = 1; index < count; ++index) {
        const std::string text = arguments[index];
        if (ReadFlag(text, options)) continue;
        if (index + 1 == count) return false;
        const char* value = arguments[++index];
        if (text == "--title")
            options.title = value;
        else if (text == "--class")
            options.windowClass = value;
        else if (text == "--count")
            options.count = std::atoi(value);
        else if (text != "--at" || !ReadPlace(value, options.place))
            return false;
    }
    return true;
}

}  // namespace sample
