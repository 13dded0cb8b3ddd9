# The one place that says how Halyard's own code is compiled and linked: link this target.
add_library(halyard_flags INTERFACE)
target_compile_features(halyard_flags INTERFACE cxx_std_20)
target_include_directories(halyard_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(halyard_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror
    -fno-exceptions -fno-rtti -gdwarf-4)

if(WIN32)
    target_compile_definitions(halyard_flags INTERFACE
        WINVER=0x0501 _WIN32_WINNT=0x0501 _WIN32_IE=0x0600 WIN32_LEAN_AND_MEAN NOMINMAX STRICT)
    # The library has no C++ runtime beside it: statics of functions are built at file scope or on one thread.
    target_compile_options(halyard_flags INTERFACE -ffunction-sections -fdata-sections -fno-threadsafe-statics)
    target_link_options(halyard_flags INTERFACE -static -Wl,--gc-sections)
    # The same bytes from the same sources, whenever and wherever they are built.
    target_compile_options(halyard_flags INTERFACE -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
    target_link_options(halyard_flags INTERFACE -Wl,--no-insert-timestamp)
    # Nothing is ever thrown. A crash report walks 32-bit stacks by their frame pointers; unwind tables would serve nobody
    # there and be a sixth of the library.
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        target_compile_options(halyard_flags INTERFACE -fno-asynchronous-unwind-tables -fno-omit-frame-pointer)
    endif()
elseif(HALYARD_SANITIZE)
    target_compile_options(halyard_flags INTERFACE
        -fsanitize=${HALYARD_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(halyard_flags INTERFACE -fsanitize=${HALYARD_SANITIZE})
endif()
