# The document library for another project: add_subdirectory(.../xmldoc xmldoc), then link tarvo_xmldoc. Of the other
# rooms it takes support/, the interfaces in platform/ and the one of them that has a source.
set(repository ${CMAKE_CURRENT_LIST_DIR}/..)
file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${repository}/xmldoc/*.cpp ${repository}/support/*.cpp)
list(FILTER sources EXCLUDE REGEX "/(windows|tool)/")
add_library(tarvo_xmldoc STATIC ${sources} ${repository}/platform/url_fetch.cpp)
target_include_directories(tarvo_xmldoc PUBLIC ${repository})
target_compile_features(tarvo_xmldoc PUBLIC cxx_std_20)
