# Plays a terminal session against the real program and compares what comes back, byte by byte:
#
#   cmake -DQEL=<path of qel> [-DEMULATOR=<program>] -DSESSION=<file> [-DMARKDOWN=ON]
#     [-DSETTINGS=ON] [-DADDRESSES=<file>] -P run_session.cmake
#
# A session is text. A line "$ qel ARGUMENTS" is a command, split as a shell splits it; the lines up to the next one
# are what it must answer:
#   < line     given to its input          ! line     expected on the message stream
#   # line     a remark                    ? number   the expected exit code (0 when there is none)
#   ~ regex    expected on the output, alone, in place of literal lines
#   %% name bytes   a file that is there before, as printf writes it
#   == name bytes   one that must be there afterwards, with this content
#   @ name=... a variable of its surroundings
#   any other  expected on the output
# "<here>" stands for the folder of the session. With ADDRESSES, lines "name=value", each "<name>" in the session stands for the value.
# In Markdown only blocks fenced as "console" count, and the two streams stand there as a terminal mixes them: the
# output, then the messages. Exit codes are not shown there and not tested.
#
# No list is made of text: brackets and semicolons would change it.
cmake_minimum_required(VERSION 3.25)

set(ENV{LC_ALL} C.UTF-8)  # English unless a command asks, and arguments that arrive as they are
set(passed 0)
set(failed 0)

# Adds to the messages the files that have another content than the session says.
macro(compare_files)
  foreach(name IN LISTS case_files)
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files "${WORK}/${name}" "${WORK}/expected-${name}"
      RESULT_VARIABLE differs OUTPUT_QUIET ERROR_QUIET)
    if(differs)
      string(APPEND messages "${name} has another content\n")
    endif()
  endforeach()
endmacro()

# Runs the command read last, when there is one, and makes ready for the next.
macro(finish_case)
  if(DEFINED command)
    separate_arguments(arguments UNIX_COMMAND "${command}")
    file(WRITE "${WORK}/input" "${case_input}")
    execute_process(COMMAND ${CMAKE_COMMAND} -E env ${case_surroundings} ${EMULATOR} ${QEL} ${arguments}
      WORKING_DIRECTORY "${WORK}" INPUT_FILE "${WORK}/input" OUTPUT_FILE "${WORK}/output"
      ERROR_FILE "${WORK}/messages" RESULT_VARIABLE exit)
    file(READ "${WORK}/output" output)
    file(READ "${WORK}/messages" messages)
    # Wine's own threads may lose their server while a program that has done its work ends.
    string(REGEX REPLACE "wine client error:[^\n]*\n" "" messages "${messages}")
    if(MARKDOWN)
      string(APPEND output "${messages}")
      set(messages "")
      set(exit 0)
    endif()
    if(NOT case_pattern STREQUAL "" AND output MATCHES "${case_pattern}")
      set(case_output "${output}")
    endif()
    compare_files()
    if(output STREQUAL case_output AND messages STREQUAL case_messages AND exit STREQUAL case_exit)
      math(EXPR passed "${passed} + 1")
    else()
      math(EXPR failed "${failed} + 1")
      message("FAILED: qel ${command}\n  exit expected ${case_exit}, given ${exit}\n"
        "  output expected:\n${case_output}${case_pattern}  given:\n${output}"
        "  messages expected:\n${case_messages}  given:\n${messages}")
    endif()
    unset(command)
  endif()
  foreach(part input surroundings files output messages pattern)
    set(case_${part} "")
  endforeach()
  set(case_exit 0)
endmacro()

get_filename_component(WORK "${SESSION}" NAME)
get_filename_component(HERE "${SESSION}" DIRECTORY)
set(WORK "${CMAKE_CURRENT_BINARY_DIR}/qel_session_${WORK}")
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")
if(MARKDOWN)
  file(COPY "${HERE}/examples" DESTINATION "${WORK}")  # it names them
endif()
# Settings are the session's own. Emulated programs share a registry of the tests, which is emptied of them.
set(ENV{QEL_REGISTRY_DIR} "${WORK}/registry")
if(SETTINGS AND EMULATOR)
  execute_process(COMMAND ${EMULATOR} reg delete HKCU\\Software\\qelmarsoft /f OUTPUT_QUIET ERROR_QUIET)
endif()
file(READ "${SESSION}" text)
string(REGEX REPLACE "([^\n])$" "\\1\n" text "${text}")
string(REPLACE "<here>" "${HERE}" text "${text}")
if(ADDRESSES)
  file(STRINGS "${ADDRESSES}" addresses)
  foreach(address IN LISTS addresses)
    string(REGEX MATCH "^([^=]*)=(.*)$" address "${address}")
    string(REPLACE "<${CMAKE_MATCH_1}>" "${CMAKE_MATCH_2}" text "${text}")
  endforeach()
endif()
string(COMPARE EQUAL "${MARKDOWN}" "" listening)

while(NOT text STREQUAL "")
  string(FIND "${text}" "\n" end)
  string(SUBSTRING "${text}" 0 ${end} line)
  math(EXPR end "${end} + 1")
  string(SUBSTRING "${text}" ${end} -1 text)
  string(SUBSTRING "${line}  " 0 2 mark)
  string(SUBSTRING "${line}  " 2 -1 value)
  string(REGEX REPLACE "  $" "" value "${value}")
  if(line STREQUAL "<")  # an empty line, with no blank for editors to cut off
    set(value "")
  endif()
  if(MARKDOWN AND line MATCHES "^```")
    finish_case()
    string(COMPARE EQUAL "${line}" "```console" listening)
  elseif(NOT listening)
    continue()
  elseif(line MATCHES "^\\$ qel(.*)$")
    set(next "${CMAKE_MATCH_1}")
    finish_case()
    set(command "${next}")
  elseif(MARKDOWN)
    string(APPEND case_output "${line}\n")
  elseif(mark STREQUAL "< ")
    string(APPEND case_input "${value}\n")
  elseif(mark STREQUAL "! ")
    string(APPEND case_messages "${value}\n")
  elseif(line MATCHES "^(%%|==) ([^ ]+) ?(.*)$")
    set(file "${CMAKE_MATCH_2}")
    if(CMAKE_MATCH_1 STREQUAL "==")
      list(APPEND case_files "${file}")
      set(file "expected-${file}")
    endif()
    execute_process(COMMAND printf "${CMAKE_MATCH_3}" OUTPUT_FILE "${WORK}/${file}" COMMAND_ERROR_IS_FATAL ANY)
  elseif(mark STREQUAL "@ ")
    list(APPEND case_surroundings "${value}")
  elseif(mark STREQUAL "? ")
    set(case_exit "${value}")
  elseif(mark STREQUAL "~ ")
    string(REPLACE "\\n" "\n" case_pattern "${value}")
  elseif(NOT mark STREQUAL "# ")
    string(APPEND case_output "${line}\n")
  endif()
endwhile()
finish_case()

message("${passed} passed, ${failed} failed")
if(failed OR passed EQUAL 0)
  message(FATAL_ERROR "qel does not answer as ${SESSION} says")
endif()
