# cmake -DPLUGIN=FILE -DOUTPUT=FILE -P pluginMark.cmake: writes what tells the program's own plug-in from any other file,
# its note of the build, as the linker has written it to the first page.
file(READ ${PLUGIN} page LIMIT 4096 HEX)
set(head 040000001400000003000000474e5500)  # sizes of the owner and of the SHA-1, the kind of note; "GNU"
string(FIND "${page}" ${head} place)
set(mark "")
if(NOT place EQUAL -1)
  string(SUBSTRING "${page}" ${place} 72 mark)
endif()
file(WRITE ${OUTPUT} "#include \"host/access/ownPlugin.h\"\n\nconst char* const vxH::ownPluginMark = \"${mark}\";\n")
