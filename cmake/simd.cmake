# libzelk_simd: scalar functions with vector forms for auto-vectorised loops (include/zelk/vectorize.h).

set(simd_options -O2 -fPIC -fvisibility=hidden -fno-exceptions -fno-rtti -fno-stack-protector -fcf-protection=full
                 -fno-plt -msse2 -Wno-ignored-attributes)
if(ZELK_TARGET STREQUAL i386)
    list(APPEND simd_options -march=i686 -mtune=generic -mfpmath=sse -mincoming-stack-boundary=2)
endif()

add_library(zelk-simd-sse OBJECT simd/scalar_and_sse.cpp)
add_library(zelk-simd-256 OBJECT simd/wide.cpp)
target_compile_options(zelk-simd-256 PRIVATE -mavx)
add_library(zelk-simd-512 OBJECT simd/wide.cpp)
target_compile_options(zelk-simd-512 PRIVATE -mavx512f)
target_compile_definitions(zelk-simd-512 PRIVATE ZELK_512)
set(simd_objects)
foreach(part sse 256 512)
    target_compile_options(zelk-simd-${part} PRIVATE ${simd_options})
    target_include_directories(zelk-simd-${part} PRIVATE ${PROJECT_SOURCE_DIR}/include)
    list(APPEND simd_objects $<TARGET_OBJECTS:zelk-simd-${part}>)
endforeach()

add_library(zelk_simd SHARED ${simd_objects})
target_link_libraries(zelk_simd PUBLIC zelk)
target_link_options(zelk_simd PRIVATE -nostdlib -Wl,-z,defs -Wl,-z,noexecstack
                                      -Wl,--version-script=${PROJECT_SOURCE_DIR}/simd/zelk_simd.map)
set_target_properties(zelk_simd PROPERTIES VERSION 1.0.0 SOVERSION 1
                                           LINK_DEPENDS ${PROJECT_SOURCE_DIR}/simd/zelk_simd.map)
add_library(zelk_simd_static STATIC ${simd_objects})
target_link_libraries(zelk_simd_static PUBLIC zelk_static)
set_target_properties(zelk_simd zelk_simd_static PROPERTIES LINKER_LANGUAGE CXX)
