# Run by CPack before it packs: what lies in /usr/etc goes to /etc.
file(GLOB folders "${CPACK_TEMPORARY_DIRECTORY}/*/usr/etc")
foreach(folder IN LISTS folders)
    cmake_path(GET folder PARENT_PATH usr)
    cmake_path(GET usr PARENT_PATH root)
    file(RENAME ${folder} ${root}/etc)
endforeach()
