// What the language's runtime would bring in for throwing: nothing here throws. With it come threads, and with those
// functions that the oldest systems lack, so that the programs wouldn't start there at all.
#include <cstdlib>
#include <new>

namespace {

// There is nothing that a program this small could do without.
void* Allocate(std::size_t size) {
    void* memory = std::malloc(size ? size : 1);
    if (!memory) std::abort();
    return memory;
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size ? size : 1);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return std::malloc(size ? size : 1);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

// The standard library's own names, for what it would throw.
namespace std {

[[noreturn]] void __throw_bad_alloc() {
    abort();
}
[[noreturn]] void __throw_bad_array_new_length() {
    abort();
}
[[noreturn]] void __throw_bad_function_call() {
    abort();
}
[[noreturn]] void __throw_length_error(const char*) {
    abort();
}
[[noreturn]] void __throw_logic_error(const char*) {
    abort();
}
[[noreturn]] void __throw_out_of_range_fmt(const char*, ...) {
    abort();
}

}  // namespace std
