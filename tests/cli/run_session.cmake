# Plays a terminal session against the real program and compares what comes back, byte by byte:
#
#   cmake -DQEL=<path of qel> [-DEMULATOR=<program>] -DSESSION=<file> [-DMARKDOWN=ON] -P run_session.cmake
#
# A session is text. A line "$ qel ARGUMENTS" is a command, split as a shell splits it; the lines up to the next one
# are what it must answer:
#   < line     given to its input          ! line     expected on the message stream
#   # line     a remark                    ? number   the expected exit code (0 when there is none)
#   ~ regex    expected on the output, alone, in place of literal lines
#   @ name=... a variable of its surroundings
#   any other  expected on the output
# In Markdown only blocks fenced as "console" count, and the two streams stand there as a terminal mixes them: the
# output, then the messages. Exit codes are not shown there and not tested.
#
# No list is made of text: brackets and semicolons would change it.
cmake_minimum_required(VERSION 3.25)

set(ENV{LC_ALL} C.UTF-8)  # English unless a command asks, and arguments that arrive as they are
set(passed 0)
set(failed 0)

function(take_line text line_variable rest_variable)
  string(FIND "${text}" "\n" end)
  string(SUBSTRING "${text}" 0 ${end} line)
  math(EXPR next "${end} + 1")
  string(SUBSTRING "${text}" ${next} -1 rest)
  set(${line_variable} "${line}" PARENT_SCOPE)
  set(${rest_variable} "${rest}" PARENT_SCOPE)
endfunction()

macro(start_case)
  set(in_case TRUE)
  set(case_input "")
  set(case_surroundings "")
  set(case_output "")
  set(case_messages "")
  set(case_exit 0)
  set(case_pattern "")
endmacro()

function(explain stream expected actual)
  message("  ${stream} expected:\n${expected}  ${stream} given:\n${actual}")
endfunction()

macro(finish_case)
  if(in_case)
    run_case()
  endif()
  set(in_case FALSE)
endmacro()

macro(run_case)
  separate_arguments(arguments UNIX_COMMAND "${case_command}")
  file(WRITE "${WORK}/input" "${case_input}")
  execute_process(COMMAND ${CMAKE_COMMAND} -E env ${case_surroundings} ${EMULATOR} ${QEL} ${arguments} INPUT_FILE "${WORK}/input"
    OUTPUT_FILE "${WORK}/output" ERROR_FILE "${WORK}/messages" RESULT_VARIABLE exit)
  file(READ "${WORK}/output" output)
  file(READ "${WORK}/messages" messages)
  if(MARKDOWN)
    string(APPEND output "${messages}")
    set(messages "")
    set(exit 0)
  endif()
  if(NOT case_pattern STREQUAL "" AND output MATCHES "${case_pattern}")
    set(case_output "${output}")
  endif()
  if(output STREQUAL case_output AND messages STREQUAL case_messages AND exit STREQUAL case_exit)
    math(EXPR passed "${passed} + 1")
  else()
    math(EXPR failed "${failed} + 1")
    message("FAILED: qel ${case_command}\n  exit expected ${case_exit}, given ${exit}")
    explain(output "${case_output}${case_pattern}" "${output}")
    explain(messages "${case_messages}" "${messages}")
  endif()
endmacro()

get_filename_component(WORK "${SESSION}" NAME)
set(WORK "${CMAKE_CURRENT_BINARY_DIR}/qel_session_${WORK}")
file(MAKE_DIRECTORY "${WORK}")
file(READ "${SESSION}" text)
if(NOT text MATCHES "\n$")
  string(APPEND text "\n")
endif()
set(in_case FALSE)
set(listening TRUE)
if(MARKDOWN)
  set(listening FALSE)
endif()

while(NOT text STREQUAL "")
  take_line("${text}" line text)
  string(SUBSTRING "${line}  " 0 2 mark)
  string(SUBSTRING "${line}  " 2 -1 value)
  string(REGEX REPLACE "  $" "" value "${value}")
  if(MARKDOWN AND line MATCHES "^```")
    finish_case()
    string(COMPARE EQUAL "${line}" "```console" listening)
  elseif(NOT listening)
    continue()
  elseif(line MATCHES "^\\$ qel(.*)$")
    set(next_command "${CMAKE_MATCH_1}")
    finish_case()
    set(case_command "${next_command}")
    start_case()
  elseif(MARKDOWN)
    string(APPEND case_output "${line}\n")
  elseif(mark STREQUAL "< ")
    string(APPEND case_input "${value}\n")
  elseif(mark STREQUAL "! ")
    string(APPEND case_messages "${value}\n")
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
