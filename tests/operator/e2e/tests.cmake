# tarvo_story(NAME COMMAND...): a test of the Windows program under Wine. It ends with 77 where the machine lacks what
# it is about.
function(tarvo_story name)
  add_test(NAME operator.${name} COMMAND ${ARGN})
  set_tests_properties(operator.${name} PROPERTIES LABELS operator TIMEOUT 400 SKIP_RETURN_CODE 77)
endfunction()

# Each script beside this file but the library is a story.
file(GLOB stories CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/*.sh)
foreach(story IN LISTS stories)
  get_filename_component(name ${story} NAME_WE)
  if(NOT "${name}" STREQUAL "story")
    tarvo_story(${name} ${story})
  endif()
endforeach()

# So is each of those that are played on a real Windows as well, but for four: of the icon, the layout, a high contrast
# and a console the scripts tray_icon, window_layout, window_look and console_server see more under Wine.
set(acceptance ${CMAKE_CURRENT_LIST_DIR}/../acceptance)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${acceptance}/table.cpp)
file(READ ${acceptance}/table.cpp table)
string(REGEX MATCHALL "{\"[a-z_]+\"" names "${table}")
list(TRANSFORM names REPLACE "[^a-z_]" "")
list(REMOVE_ITEM names tray_icon texts_whole high_contrast console_window)
foreach(name IN LISTS names)
  tarvo_story(${name} ${acceptance}/under_wine.sh --story ${name})
endforeach()

# The stories of the launcher's core once more: the launcher started from another folder, in a root whose
# name has letters outside of ASCII. `start_elsewhere` is one by itself.
foreach(name IN ITEMS crash_restart settings_kept upgrade_on_crash)
  tarvo_story(${name}.elsewhere ${acceptance}/under_wine.sh --story ${name} --elsewhere)
endforeach()

# The longest first, so that none of them is waited for alone at the end.
set_tests_properties(operator.launcher_fault operator.launcher_out_of_memory operator.randomizer_calendar
  operator.events_hang PROPERTIES COST 70)
set_tests_properties(operator.window_look operator.silent_others operator.upgrade_on_crash operator.crash_restart
  operator.upgrade_on_crash.elsewhere operator.crash_restart.elsewhere PROPERTIES COST 30)
