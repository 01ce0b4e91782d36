# Each script beside this file but the library is a story: a test of the Windows program under Wine.
file(GLOB stories CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.sh)
foreach(story IN LISTS stories)
  get_filename_component(name ${story} NAME_WE)
  if(NOT "${name}" STREQUAL "story")
    add_test(NAME operator.${name} COMMAND ${story})
    set_tests_properties(operator.${name} PROPERTIES LABELS operator TIMEOUT 400)
  endif()
endforeach()
