// Runs a fuzz target over a fixed sequence of inputs, so that a fault comes again with the next run.
#include "fuzz_target.h"

#include <csignal>
#include <random>

namespace {

constexpr unsigned Runs = 300000;
constexpr std::size_t MaxSize = 600;

std::string input;

// The sanitizers end the process this way too.
void PrintInput(int) {
    std::fprintf(stderr, "input of %zu bytes:", input.size());
    for (const char byte : input)
        std::fprintf(stderr, " %02x", static_cast<unsigned char>(byte));
    std::fputc('\n', stderr);
}

std::mt19937 randomBits(4242);

std::string_view Seed() {
    return fuzzSeeds[randomBits() % fuzzSeeds.size()];
}

void Change(std::string& text) {
    const std::size_t at = randomBits() % (text.size() + 1), length = randomBits() % (text.size() - at + 1);
    const char byte = static_cast<char>(randomBits());
    switch (randomBits() % 6) {
    case 0: text.insert(at, 1, byte); break;
    case 1: text.replace(at, at < text.size(), 1, byte); break;
    case 2: text.erase(at, length); break;
    case 3: text.insert(at, text.substr(at, length)); break;
    case 4: text.insert(at, Seed()); break;
    case 5: text.insert(at, randomBits() % 300, byte); break;
    }
}

}  // namespace

extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "abort_on_error=1";
}

int main() {
    std::signal(SIGABRT, PrintInput);
    for (unsigned run = 0; run < Runs; ++run) {
        input = Seed();
        for (unsigned changes = randomBits() % 6; changes > 0; --changes)
            Change(input);
        if (input.size() > MaxSize) input.resize(MaxSize);
        // A block of its own on the heap: the address sanitizer sees a step beside it.
        const std::vector<std::uint8_t> exact(input.begin(), input.end());
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
    }
    std::printf("%u inputs\n", Runs);
    return 0;
}
