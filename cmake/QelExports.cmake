# Writes OUTPUT, the list of what the linker exports: all of namespace Qel, the global names of the public headers, and
# nothing that the standard library's templates would leave behind. A name is found where a line begins with its
# declaration; scripts/abi tells of those that were not.
#
#   cmake -DOUTPUT=exports.map "-DHEADERS=date.h;url.h" -P QelExports.cmake
cmake_minimum_required(VERSION 3.25)

set(names "")
foreach(header IN LISTS HEADERS)
  file(STRINGS "${header}" lines REGEX "^(class|struct|QEL_API) ")
  foreach(line IN LISTS lines)
    if(line MATCHES "^(class|struct) (QEL_API )?([A-Za-z0-9_]+)")
      list(APPEND names ${CMAKE_MATCH_3})
    elseif(line MATCHES "^QEL_API [^(]*[ *&]([A-Za-z0-9_]+)[(]")
      list(APPEND names ${CMAKE_MATCH_1})
    endif()
  endforeach()
endforeach()
list(REMOVE_DUPLICATES names)
list(SORT names)

set(patterns "")
# A scope as compilers spell it: its members, constant and other, what belongs to its types, and their thunks.
macro(add_scope spelled)
  foreach(before _ZN _ZNK _ZTVN _ZTTN _ZTIN _ZTSN _ZTIPN _ZTSPN _ZTIPKN _ZTSPKN _ZGVN _ZThn*_N _ZTv*_N _ZTch*_N)
    string(APPEND patterns "    ${before}${spelled}*;\n")
  endforeach()
endmacro()

add_scope(3Qel)
foreach(name IN LISTS names)
  string(LENGTH ${name} length)
  add_scope(${length}${name})
  foreach(before _Z _ZTV _ZTT _ZTI _ZTS _ZTIP _ZTSP _ZTIPK _ZTSPK)
    string(APPEND patterns "    ${before}${length}${name}*;\n")
  endforeach()
endforeach()
file(WRITE "${OUTPUT}" "{\n  global:\n${patterns}  local: *;\n};\n")
