# libbrava, the processor-feature runtime, and libzelk itself.

# Every library is linked twice, shared and static, from the same objects.
add_library(brava-objects OBJECT runtime/brava.cpp)
target_compile_options(brava-objects PRIVATE -O2 -fPIC -fvisibility=hidden -fno-exceptions -fno-rtti -mgeneral-regs-only
                                             -falign-functions=64 -fcf-protection=full)
add_library(brava SHARED $<TARGET_OBJECTS:brava-objects>)
add_library(brava_static STATIC $<TARGET_OBJECTS:brava-objects>)
foreach(library brava brava_static)
    target_include_directories(${library} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/runtime>)
    set_target_properties(${library} PROPERTIES LINKER_LANGUAGE CXX)
endforeach()
target_link_options(brava PRIVATE -nostdlib -Wl,-z,defs -Wl,-z,noexecstack
                                  -Wl,--version-script=${PROJECT_SOURCE_DIR}/runtime/brava.map)
set_target_properties(brava PROPERTIES VERSION 1.0.0 SOVERSION 1
                                       LINK_DEPENDS ${PROJECT_SOURCE_DIR}/runtime/brava.map)

# What every object of libzelk is compiled with. The floating-point flags are part of the library's contract:
# the caller's rounding mode and every exception flag count.
set(library_options
    -O2 -fPIC -fvisibility=hidden -fno-exceptions -fno-rtti -fno-stack-protector -fno-threadsafe-statics
    -fcf-protection=full -fno-semantic-interposition -fno-plt
    # A short kernel that straddles cache lines costs a cycle per call.
    -falign-functions=64
    -frounding-math -ftrapping-math -fsignaling-nans -ffp-contract=off -fno-math-errno
    # GCC 12 and 13 join two float operations to one on four lanes, and what the other two hold raises exceptions.
    -fno-tree-slp-vectorize)
if(ZELK_TARGET STREQUAL x86_64)
    # Callers rely on XMM8 to XMM15; -ffixed- keeps the compiler away from them (-fcall-saved- would not save them).
    foreach(register RANGE 8 15)
        list(APPEND library_options -ffixed-xmm${register})
    endforeach()
    set(tiers A L)
    set(baseline_options -msse2 -mno-sse3)
    set(tier_options_A -msse2 -mno-sse3)
    set(tier_options_L -msse3 -mno-ssse3)
else()
    # Callers may hold the stack at any multiple of 4; functions that need more align it themselves.
    list(APPEND library_options -march=i686 -mtune=generic -mfpmath=sse -mincoming-stack-boundary=2)
    set(tiers A J L N)
    set(baseline_options -msse2 -mno-sse3)
    set(tier_options_A -msse2 -mno-sse3)
    # Tier A of the f4, c2 and scalar functions is for processors whose doubles and integer lanes are not in SSE.
    set(tier_options_A-sse -msse -mno-sse2)
    set(tier_options_J -msse2 -mno-sse3)
    set(tier_options_L -msse3 -mno-ssse3)
    set(tier_options_N -msse4.1 -mno-sse4.2)
endif()

# The kernel sources: one file per entry, named after it (or for a group of entries: identityf2), so that the name
# tells the lanes and so the tiers.
set(families trig explog invtrig hyperbolic roots_erf rounding_intdiv complex extended)
set(kernel_sources)
foreach(family ${families})
    file(GLOB sources CONFIGURE_DEPENDS src/${family}/*.cpp)
    list(APPEND kernel_sources ${sources})
endforeach()

# Scalar routines with tiers; all other scalar routines have one implementation.
set(tiered_scalars acos_scalar atan2_scalar cexpf_scalar csqrtf_scalar log_scalar log1p_scalar)
if(ZELK_TARGET STREQUAL i386)
    list(APPEND tiered_scalars
        acoshl_scalar asinhl_scalar atanhl_scalar clogf_scalar log1pl_scalar logl_scalar tanhl_scalar)
endif()

# Scalar routines that round to binary64 between operations, or carry a binary64 unchanged: on i386 their doubles
# are in SSE2. No f4 or c2 kernel of tier A calls them.
set(binary64_scalars cacos_scalar clog_scalar copysign_scalar csqrt_scalar fabs_scalar identity_scalar reduce_pi04l)

# On i386, kernels whose tier A is a loop over the lanes (src/lane_loops): their own sources are for the other tiers.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS src/dispatch/entries.def)
file(STRINGS src/dispatch/entries.def lane_loops REGEX "^ZELK_LANE_LOOP")
list(TRANSFORM lane_loops REPLACE "^ZELK_LANE_LOOP\\(([A-Za-z0-9]+)\\).*" "\\1")

# Groups of objects (tiers; A-sse is tier A without SSE2) in which the kernel source `name` is compiled on this target.
function(tiers_of name result)
    if(name MATCHES "_scalar$|l$") # sinl_scalar, reduce_pi04l
        if(ZELK_TARGET STREQUAL i386)
            set(groups A-sse J)
        else()
            set(groups A L)
        endif()
        if(NOT name IN_LIST tiered_scalars)
            list(POP_BACK groups)
        endif()
        if(name IN_LIST binary64_scalars)
            set(groups A)
        endif()
    elseif(name STREQUAL "trig_reduction")
        set(groups A) # one hidden routine for all kernels
    elseif(ZELK_TARGET STREQUAL x86_64)
        set(groups A L)
    elseif(name IN_LIST lane_loops)
        set(groups J L N)
    elseif(name MATCHES "f4$|[^r]f2$") # erf2 is on double2
        set(groups A-sse J L N)
    elseif(name MATCHES "(div|rem)4$")
        set(groups A J L N)
    elseif(name MATCHES "2$")
        set(groups A L N)
    else()
        message(FATAL_ERROR "${name}.cpp: a kernel source is named after its entry (sinf4, sin2, idiv4, acos_scalar)")
    endif()
    set(${result} ${groups} PARENT_SCOPE)
endfunction()

# One group of objects per tier; on i386 tier A has two.
set(tier_groups ${tiers})
if(ZELK_TARGET STREQUAL i386)
    list(APPEND tier_groups A-sse)
endif()
foreach(group ${tier_groups})
    set(tier_sources_${group})
endforeach()
foreach(source ${kernel_sources})
    get_filename_component(name ${source} NAME_WE)
    tiers_of(${name} groups_of_source)
    foreach(group ${groups_of_source})
        list(APPEND tier_sources_${group} ${source})
    endforeach()
endforeach()
if(ZELK_TARGET STREQUAL i386)
    file(GLOB sources CONFIGURE_DEPENDS src/lane_loops/*.cpp)
    list(APPEND tier_sources_A-sse ${sources})
endif()

set(library_objects)
foreach(group ${tier_groups})
    string(SUBSTRING ${group} 0 1 tier)
    add_library(zelk-tier-${group} OBJECT ${tier_sources_${group}})
    target_compile_options(zelk-tier-${group} PRIVATE ${library_options} ${tier_options_${group}})
    target_compile_definitions(zelk-tier-${group} PRIVATE ZELK_TIER_LETTER=${tier})
    target_include_directories(zelk-tier-${group} PRIVATE src)
    list(APPEND library_objects $<TARGET_OBJECTS:zelk-tier-${group}>)
endforeach()

file(GLOB table_sources CONFIGURE_DEPENDS src/tables/*.cpp)
add_library(zelk-common OBJECT ${table_sources} src/dispatch/dispatchers.S)
target_compile_options(zelk-common PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${library_options};${baseline_options}>
                                           $<$<COMPILE_LANGUAGE:ASM>:-fcf-protection=full>)
target_include_directories(zelk-common PRIVATE src)
set_property(SOURCE src/dispatch/dispatchers.S APPEND PROPERTY OBJECT_DEPENDS
             ${PROJECT_SOURCE_DIR}/src/dispatch/entries.def)

# The exported names, from the list of entries.
set(export_map ${PROJECT_BINARY_DIR}/exports.map)
separate_arguments(target_flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
add_custom_command(
    OUTPUT ${export_map}
    COMMAND ${CMAKE_CXX_COMPILER} ${target_flags} -E -P -x c -I ${PROJECT_SOURCE_DIR}/src
            ${PROJECT_SOURCE_DIR}/src/dispatch/exports.map.in -o ${export_map}
    DEPENDS src/dispatch/exports.map.in src/dispatch/entries.def
    VERBATIM)
add_custom_target(zelk-export-map DEPENDS ${export_map})

add_library(zelk SHARED $<TARGET_OBJECTS:zelk-common> ${library_objects})
add_dependencies(zelk zelk-export-map)
target_link_libraries(zelk PRIVATE brava)
target_link_options(zelk PRIVATE -nostdlib -Wl,-z,defs -Wl,-z,noexecstack -Wl,-Bsymbolic
                                 -Wl,--version-script=${export_map})
set_target_properties(zelk PROPERTIES VERSION 1.0.0 SOVERSION 1 LINK_DEPENDS ${export_map}
                                      LINKER_LANGUAGE CXX)

add_library(zelk_static STATIC $<TARGET_OBJECTS:zelk-common> ${library_objects})
target_link_libraries(zelk_static PUBLIC brava_static)
set_target_properties(zelk_static PROPERTIES LINKER_LANGUAGE CXX)
foreach(library zelk zelk_static)
    target_include_directories(${library} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                                                 $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    # The headers pass vectors in registers, which 32-bit compilers have to be told.
    if(ZELK_TARGET STREQUAL i386)
        target_compile_options(${library} INTERFACE -msse2)
    endif()
endforeach()
