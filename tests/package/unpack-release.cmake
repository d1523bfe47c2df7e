# Makes the release package from the installed program folder and unpacks it, so that every
# later test runs the program as a user gets it. cmake -DBUILD=<build folder> -DNAME=<package
# name> -P unpack-release.cmake
execute_process(COMMAND ${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${BUILD}
  OUTPUT_QUIET RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "cpack failed")
endif()
file(REMOVE_RECURSE ${BUILD}/release)
file(MAKE_DIRECTORY ${BUILD}/release)
file(ARCHIVE_EXTRACT INPUT ${BUILD}/${NAME}.zip DESTINATION ${BUILD}/release)
message(STATUS "unpacked ${NAME}.zip into ${BUILD}/release")
