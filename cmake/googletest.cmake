# GoogleTest, from its sources, for every folder of tests that includes this file.
if(NOT TARGET gtest)
  find_path(GOOGLETEST_SOURCE googletest/CMakeLists.txt HINTS /usr/src/googletest REQUIRED NO_CMAKE_FIND_ROOT_PATH)
  set(INSTALL_GTEST OFF)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(BUILD_GMOCK OFF)
  add_subdirectory(${GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  target_compile_options(gtest PRIVATE -w)
  target_compile_options(gtest_main PRIVATE -w)
endif()
# An EXPECT_ below an `if` is one statement of the library's macros.
add_compile_options(-Wno-dangling-else)
