# Compiles through ccache where it is installed, unless the user has named a launcher, on the command line or in the
# environment. An empty one (-DCMAKE_CXX_COMPILER_LAUNCHER=) means none.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
