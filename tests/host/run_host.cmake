# Runs the example host as its user would, and looks at all that it leaves:
#
#   cmake -DHOST=<program> [-DEMULATOR=<program>] -DADDRESSES=<file> -DWORK=<folder> -P run_host.cmake
cmake_minimum_required(VERSION 3.25)

file(STRINGS "${ADDRESSES}" server REGEX "^http=")
string(REPLACE "http=" "" server "${server}")
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}/out")
set(ENV{QEL_REGISTRY_DIR} "${WORK}/registry")
execute_process(COMMAND ${EMULATOR} "${HOST}" out ${server}/host/echo WORKING_DIRECTORY "${WORK}"
  OUTPUT_VARIABLE shown ERROR_VARIABLE messages RESULT_VARIABLE exit)

# must_match(<what> <text> <regular expression>)
function(must_match what text expected)
  if(NOT "${text}" MATCHES "${expected}")
    message(SEND_ERROR "${what}: expected ${expected}\n${text}")
  endif()
endfunction()

must_match("exit code" "${exit}" "^0$")
must_match("messages" "${messages}" "^$")
string(REPLACE "\r" "" shown "${shown}")
must_match("output" "${shown}" "^Start [0-9]+
Entry 17
Typed: ٧-٩-١٤٤٥
Due: 2024-03-17, Sun 7 Ramadan 1445
number > 0
Report posted: 200
$")

file(READ "${WORK}/out/pane.rtf" rtf)
must_match("pane.rtf" "${rtf}" "^{.rtf1.fbidis.*.fs29.b Entry 17.par\n.*.b Due: .cf3.b0 2024-03-17, Sun 7 Ramadan 1445.par\n}$")
file(READ "${WORK}/out/pane.html" html)
must_match("pane.html" "${html}" "<font color=\"#000080\">Typed: </font><b>٧-٩-١٤٤٥</b><BR>")
file(READ "${WORK}/out/report.html" report)
must_match("report.html" "${report}" "number &gt; 0<BR>.*OpenEntry.*host/entries<BR>")

file(GLOB log "${WORK}/out/host_*_log.xml")
file(READ "${log}" metrics)
must_match("metrics" "${metrics}" "<name>EntryOpened</name>.*<Entry>17</Entry>.*<Status>200</Status>.*SessionEnd.*</metrics>\n$")
