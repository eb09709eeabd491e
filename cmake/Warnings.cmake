# The warnings every target of ours is built with, and the arithmetic that files
# depend on: no fused multiply-add and no fast-math, so that a matrix comes out
# the same on every machine.
add_library(vkt_warnings INTERFACE)
if(MSVC)
    target_compile_options(vkt_warnings INTERFACE /W4 /fp:precise)
    if(VKT_WARNINGS_AS_ERRORS)
        target_compile_options(vkt_warnings INTERFACE /WX)
    endif()
else()
    target_compile_options(vkt_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow
        -Wnon-virtual-dtor -ffp-contract=off)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Its -Wshadow also objects to enumerators of a class that one of the namespace shares a name with.
        target_compile_options(vkt_warnings INTERFACE -Wno-overloaded-virtual -Wno-shadow)
    endif()
    if(VKT_WARNINGS_AS_ERRORS)
        target_compile_options(vkt_warnings INTERFACE -Werror)
    endif()
endif()
