# Writes files as one C++ table of names and bytes, for programs that carry them inside:
#   cmake -DOUT=file -DFILES=a;b -P Embed.cmake
set(text "// Made by Embed.cmake.\n")
foreach(file IN LISTS FILES)
  get_filename_component(name "${file}" NAME)
  file(READ "${file}" hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  string(APPEND text "{\"${name}\", {${bytes}}},\n")
endforeach()
file(WRITE "${OUT}" "${text}")
