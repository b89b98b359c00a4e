# Every compiler flag of this project; presets only choose among them by the build type and the KDL_ options.

# The tests play whole sessions, so they are optimised a little; a backtrace still has its lines.
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1")

# What every target of ours links.
add_library(kdl_flags INTERFACE)
target_compile_options(kdl_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  # Sources are UTF-8, all text of the running program is Shift-JIS in its CP932 form. TRANSLIT is there for
  # one literal of libstdc++ (the micro sign in <chrono>); a test proves that our own sources need none.
  -finput-charset=UTF-8 -fexec-charset=CP932//TRANSLIT
  # GCC 12 sees overlaps inside std::string's own operator+ when it optimises.
  $<$<CONFIG:Release>:-Wno-restrict>
  $<$<BOOL:${KDL_WERROR}>:-Werror>)

if(KDL_SANITIZE)
  target_compile_options(kdl_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                             -fno-omit-frame-pointer
    # The sanitizers' own code makes GCC 12 see uninitialised members inside <regex>.
    -Wno-maybe-uninitialized)
  target_link_options(kdl_flags INTERFACE -fsanitize=address,undefined)
endif()

# For what is too slow without the optimiser, whatever the build type.
add_library(kdl_optimised INTERFACE)
target_compile_options(kdl_optimised INTERFACE -O2)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
