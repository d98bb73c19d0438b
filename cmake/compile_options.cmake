# The options of everything in this project, as the interface target veldrin_compile_options. Nothing of it reaches a
# consumer.

add_library(veldrin_compile_options INTERFACE)
target_compile_options(veldrin_compile_options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(VELDRIN_WARNINGS_AS_ERRORS)
    target_compile_options(veldrin_compile_options INTERFACE -Werror)
endif()

# File names in assertions do not depend on where the tree was built.
target_compile_options(veldrin_compile_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)

if(VELDRIN_SANITIZE)
    set(sanitize_options -fsanitize=${VELDRIN_SANITIZE} -fno-omit-frame-pointer)
    if(VELDRIN_SANITIZE MATCHES "undefined")
        list(APPEND sanitize_options -fno-sanitize-recover=undefined)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The compiler's own manual tells that its sanitizers bring false warnings of this kind.
        target_compile_options(veldrin_compile_options INTERFACE -Wno-maybe-uninitialized)
    endif()
    add_compile_options(${sanitize_options})
    add_link_options(${sanitize_options})
endif()

# Coverage feedback for the fuzzer in the library too, not only in the targets.
if(VELDRIN_BUILD_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
