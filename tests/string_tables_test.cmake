# What the build says to a string table it cannot read, and what it makes of awkward texts.
#
#   cmake -DSCRIPT=cmake/QelStrings.cmake -DFOLDER=<scratch> -P string_tables_test.cmake
set(table ${FOLDER}/table.txt)

function(run_script content output)
  file(WRITE ${table} "${content}")
  execute_process(COMMAND ${CMAKE_COMMAND} -DOUTPUT=${output} -DINPUTS=${table} -P ${SCRIPT}
    RESULT_VARIABLE result ERROR_VARIABLE error)
  string(REGEX REPLACE "[ \n]+" " " error "${error}")
  set(result ${result} PARENT_SCOPE)
  set(error "${error}" PARENT_SCOPE)
endfunction()

function(expect_refusal content line text)
  run_script("${content}" ${FOLDER}/refused.cpp)
  string(FIND "${error}" "${table}:${line}: ${text}" found)
  if(result EQUAL 0 OR found EQUAL -1)
    message(SEND_ERROR "not refused at line ${line} with '${text}':\n${content}\nresult ${result}: ${error}")
  endif()
endfunction()

function(expect_written name wanted)
  run_script("language 3081\r\n\n32  say \"a\\b\"; [x \${V} \n" ${FOLDER}/${name})
  file(READ ${FOLDER}/${name} written)
  string(FIND "${written}" "${wanted}" found)
  if(NOT result EQUAL 0 OR found EQUAL -1)
    message(SEND_ERROR "${name} lacks ${wanted}:\n${written}${error}")
  endif()
endfunction()

expect_refusal("language 1033\n1 a\n# b\n\n1 c\n" 5 "id 1 is there already")
expect_refusal("language 1033\n1 \t \n" 2 "id 1 has no text")
expect_refusal("language 1033\n65536 a" 2 "id 65536 is above 65535")
expect_refusal("1 a\nlanguage 1033\n" 1 "a text before the `language` line")
expect_refusal("language 1033\nlanguage 1033\n" 2 "language 1033 has a table already")
expect_refusal("language 1033\n1 😀\n" 2 "a character above U+FFFF")
expect_refusal("language 1033\n-1 a\n" 2 "neither `language <number>` nor `<id> <text>`")
expect_written(text.cpp "k3081_3 = PackedBlock(\n    L\"say \\\"a\\\\b\\\"; [x \${V}\", L\"\"")
expect_written(text.rc "LANGUAGE 9, 3\nSTRINGTABLE\nBEGIN\n  32 \"say \"\"a\\\\b\"\"; [x \${V}\"\n")
