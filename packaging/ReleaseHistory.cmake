# The releases as CHANGELOG.md tells them, newest first, in the forms that the metainfo and the Debian package want:
# TARVEL_RELEASES and TARVEL_DEBIAN_CHANGELOG. A heading is "## 6.1.0, 2026-03-01" or "## 6.1.0, not yet released"; the
# latter takes the day of the build, which SOURCE_DATE_EPOCH sets.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)

set(TARVEL_MAINTAINER "The Tarvel developers <developers@tarvel.example>")
string(TIMESTAMP TARVEL_BUILD_DAY "%Y-%m-%d" UTC)

# A day such as 2026-03-01 in the form of a mail's date.
function(tarvel_mail_date day result)
  execute_process(COMMAND date --utc --date=${day} "+%a, %d %b %Y 00:00:00 +0000"
    OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${result} ${date} PARENT_SCOPE)
endfunction()

# A semicolon would divide the list of lines.
file(READ ${PROJECT_SOURCE_DIR}/CHANGELOG.md history)
string(REPLACE ";" "," history "${history}")
string(REPLACE "[" "(" history "${history}")
string(REPLACE "]" ")" history "${history}")
string(REPLACE "\n" ";" history "${history}")

set(TARVEL_RELEASES "")
set(TARVEL_DEBIAN_CHANGELOG "")
set(newest "")
set(signature "")
foreach(line IN LISTS history)
  if(line MATCHES "^## ([0-9]+\\.[0-9]+\\.[0-9]+), (.+)$")
    set(version ${CMAKE_MATCH_1})
    set(day ${CMAKE_MATCH_2})
    set(type stable)
    if(day STREQUAL "not yet released")
      set(day ${TARVEL_BUILD_DAY})
      set(type development)
    elseif(NOT day MATCHES "^[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]$")
      message(FATAL_ERROR "CHANGELOG.md: \"${day}\" is no day such as 2026-03-01")
    endif()
    if(newest STREQUAL "")
      set(newest ${version})
    endif()
    string(APPEND TARVEL_RELEASES "    <release version=\"${version}\" date=\"${day}\" type=\"${type}\"/>\n")
    string(APPEND TARVEL_DEBIAN_CHANGELOG "${signature}tarvel (${version}) unstable; urgency=medium\n\n")
    tarvel_mail_date(${day} date)
    set(signature "\n -- ${TARVEL_MAINTAINER}  ${date}\n\n")
  elseif(line MATCHES "^- (.+)$")
    string(APPEND TARVEL_DEBIAN_CHANGELOG "  * ${CMAKE_MATCH_1}\n")
  endif()
endforeach()
string(APPEND TARVEL_DEBIAN_CHANGELOG "${signature}")

if(NOT newest STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "CHANGELOG.md begins with version \"${newest}\", and this is ${PROJECT_VERSION}")
endif()
