# halyard_delayed_import(TARGET DLL FUNCTION@STACKBYTES ...)
# Links TARGET to the functions of DLL so that the DLL is mapped at the first call of one of them and not before.
# STACKBYTES is the size of the stdcall arguments, which is part of the symbol's name on i686 and of nothing elsewhere.
function(halyard_delayed_import target dll)
    string(TOLOWER ${dll} base)
    string(REPLACE ".dll" "" base ${base})
    set(definition "LIBRARY \"${dll}\"\nEXPORTS\n")
    foreach(function ${ARGN})
        if(CMAKE_SIZEOF_VOID_P EQUAL 4)
            string(APPEND definition "${function}\n")
            # The linker drops the thunk of a function that is only called through its import slot, and the slot
            # then stays null; asking for the thunk by name keeps it.
            target_link_options(${target} PRIVATE -Wl,-u,_${function})
        else()
            string(REGEX REPLACE "@.*" "" plain ${function})
            string(APPEND definition "${plain}\n")
        endif()
    endforeach()
    set(file ${CMAKE_CURRENT_BINARY_DIR}/${target}_${base})
    file(CONFIGURE OUTPUT ${file}.def CONTENT "${definition}" @ONLY)
    add_custom_command(OUTPUT ${file}.a
        COMMAND ${CMAKE_DLLTOOL} -k -d ${file}.def -y ${file}.a
        DEPENDS ${file}.def VERBATIM)
    add_custom_target(${target}_${base}_delayed DEPENDS ${file}.a)
    add_dependencies(${target} ${target}_${base}_delayed)
    target_link_libraries(${target} PRIVATE ${file}.a delayimp)
endfunction()
