# Run by CPack after it has made the release zip: writes the zip again from the same program
# folder so that it is the same, byte for byte, for everyone who builds the same commit, and
# writes its checksum beside it in the format of sha256sum, for `sha256sum -c`.
#
# The time that every entry carries: SOURCE_DATE_EPOCH where the builder gives it, else the
# time of the commit being built, else the earliest time a zip can hold. It is read here, when
# the package is made, so that a new commit never gets the time of an old one.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  set(epoch $ENV{SOURCE_DATE_EPOCH})
else()
  execute_process(COMMAND git log -1 --format=%ct
    WORKING_DIRECTORY ${CPACK_KELVARNITE_SOURCE_DIR}
    OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
if(NOT epoch MATCHES "^[0-9]+$")
  set(epoch 315532800)
endif()

foreach(package IN LISTS CPACK_PACKAGE_FILES)
  get_filename_component(name ${package} NAME)
  execute_process(
    COMMAND ${CPACK_KELVARNITE_PYTHON} ${CPACK_KELVARNITE_WRITE_ZIP}
      ${CPACK_TEMPORARY_DIRECTORY} ${package} ${epoch}
    RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "the release zip could not be written again: ${failed}")
  endif()
  file(SHA256 ${package} sum)
  # CPack copies the zip into the package folder after this script; the checksum goes there.
  file(WRITE ${CPACK_PACKAGE_DIRECTORY}/${name}.sha256 "${sum}  ${name}\n")
endforeach()
