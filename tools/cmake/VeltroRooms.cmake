# How a room becomes a library.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# What is used together lies together: the add-in looks for its files beside itself.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

if(WIN32)
    set(VELTRO_WORLD windows)
    enable_language(RC)
    # Resource scripts name their files from the root, as sources do, and drawn pictures as pictures/<file>.
    set(CMAKE_RC_FLAGS "${CMAKE_RC_FLAGS} -I \"${CMAKE_SOURCE_DIR}\" -I \"${CMAKE_BINARY_DIR}/generated\"")
else()
    set(VELTRO_WORLD native)
endif()

add_library(veltro_options INTERFACE)
target_include_directories(veltro_options INTERFACE ${CMAKE_SOURCE_DIR})
if(MSVC)
    target_compile_options(veltro_options INTERFACE /W4 /WX /utf-8 /permissive- /EHsc)
    set(CMAKE_MSVC_RUNTIME_LIBRARY MultiThreaded$<$<CONFIG:Debug>:Debug>)
else()
    target_compile_options(
        veltro_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                 -Wnon-virtual-dtor -Woverloaded-virtual -Werror>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # The standard library's own templates use what it calls deprecated, and clang blames their caller.
        target_compile_options(veltro_options INTERFACE -Wno-error=deprecated-declarations)
    endif()
endif()
if(WIN32)
    # XP is the oldest system that the product runs on.
    target_compile_definitions(veltro_options INTERFACE UNICODE _UNICODE WINVER=0x0501 _WIN32_WINNT=0x0501
                                                        NOMINMAX WIN32_LEAN_AND_MEAN STRICT)
endif()
if(MINGW)
    # Users have no compiler's run-time DLLs.
    target_link_options(veltro_options INTERFACE -static)
    # The trace names source files; the builder's folders are no part of the product.
    target_compile_options(
        veltro_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=>)
endif()
if(VELTRO_SANITIZE)
    target_compile_options(veltro_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
    target_link_options(veltro_options INTERFACE -fsanitize=address,undefined)
endif()
if(VELTRO_FUZZ)
    target_compile_options(veltro_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# The sources of one or more folders, without programs' main files.
function(veltro_sources result)
    set(found)
    foreach(folder IN LISTS ARGN)
        file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
        list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
        list(APPEND found ${sources})
    endforeach()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# veltro_room(name [rooms it builds on...]): the room's sources and those of the world it is built for, as
# the library veltro_<name>.
function(veltro_room name)
    veltro_sources(sources ${name} ${name}/${VELTRO_WORLD})
    if(sources)
        set(scope PUBLIC)
        add_library(veltro_${name} STATIC ${sources})
    else()
        set(scope INTERFACE)
        add_library(veltro_${name} INTERFACE)
    endif()
    list(TRANSFORM ARGN PREPEND veltro_)
    target_link_libraries(veltro_${name} ${scope} veltro_options ${ARGN})
endfunction()
