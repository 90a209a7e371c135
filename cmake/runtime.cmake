# The compiler's shared run-time libraries go beside the programs: exceptions and RTTI cross the DLLs through them.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${path}")
        set(path /usr/x86_64-w64-mingw32/lib/${library})
    endif()
    # Wine would read the debugging information into the memory of each process.
    execute_process(COMMAND ${CMAKE_STRIP} --strip-debug -o ${CMAKE_BINARY_DIR}/bin/${library} ${path}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
