# The page that compares reports: its sources under src/compare/ assembled into one
# self-contained compare.html in the build folder, which the program folder and the release
# package carry beside help.html. It needs nothing but CMake, so every build makes it.
#
# Sets KELVARNITE_COMPARE_PAGE to the assembled file for the includer.
set(KELVARNITE_COMPARE_PAGE ${PROJECT_BINARY_DIR}/compare.html)

include_guard(GLOBAL)

# Found from this file, so that the page builds whichever project includes it. The script's
# modules are listed in modules.txt; node's test runner imports them as they are.
get_filename_component(_kelvarnite_compare_dir ${CMAKE_CURRENT_LIST_DIR}/../src/compare ABSOLUTE)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_kelvarnite_compare_dir}/modules.txt)
file(STRINGS ${_kelvarnite_compare_dir}/modules.txt _kelvarnite_compare_modules REGEX "^[^#]")
list(TRANSFORM _kelvarnite_compare_modules PREPEND ${_kelvarnite_compare_dir}/)
list(TRANSFORM _kelvarnite_compare_modules APPEND .mjs)
add_custom_command(
  OUTPUT ${KELVARNITE_COMPARE_PAGE}
  COMMAND ${CMAKE_COMMAND}
    -DPAGE=${_kelvarnite_compare_dir}/compare.html
    -DCSS=${_kelvarnite_compare_dir}/compare.css
    -DMODULES=${_kelvarnite_compare_dir}/modules.txt
    -DVERSION=${PROJECT_VERSION}
    -DOUT=${KELVARNITE_COMPARE_PAGE}
    -P ${CMAKE_CURRENT_LIST_DIR}/InlinePage.cmake
  DEPENDS ${_kelvarnite_compare_dir}/compare.html ${_kelvarnite_compare_dir}/compare.css
    ${_kelvarnite_compare_dir}/modules.txt ${_kelvarnite_compare_modules} ${CMAKE_CURRENT_LIST_DIR}/InlinePage.cmake
  COMMENT "Assembling compare.html"
  VERBATIM)
add_custom_target(kelvarnite_compare_page ALL DEPENDS ${KELVARNITE_COMPARE_PAGE})
