# Each script beside this file but the library is a story: a test of the Windows program under Wine.
file(GLOB stories CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.sh)
foreach(story IN LISTS stories)
  get_filename_component(name ${story} NAME_WE)
  if(NOT "${name}" STREQUAL "story")
    add_test(NAME operator.${name} COMMAND ${story})
    set_tests_properties(operator.${name} PROPERTIES LABELS operator TIMEOUT 400)
  endif()
endforeach()

# The stories of the launcher's core once more: the launcher started from another folder, in a root whose
# name has letters outside of ASCII.
foreach(name IN ITEMS start_stop crash_restart settings_kept upgrade_on_crash)
  add_test(NAME operator.${name}.elsewhere COMMAND ${CMAKE_CURRENT_LIST_DIR}/${name}.sh)
  set_tests_properties(operator.${name}.elsewhere PROPERTIES LABELS operator TIMEOUT 400
    ENVIRONMENT "TARVO_STORY_ELSEWHERE=1;TARVO_STORY_ROOT=Servidor Ñandú")
endforeach()

# The longest first, so that none of them is waited for alone at the end.
set_tests_properties(operator.launcher_fault operator.launcher_out_of_memory operator.randomizer_calendar PROPERTIES COST 70)
set_tests_properties(operator.window_look operator.silent_others operator.upgrade_on_crash operator.crash_restart
  operator.upgrade_on_crash.elsewhere operator.crash_restart.elsewhere PROPERTIES COST 30)
