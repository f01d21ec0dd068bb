# Installs the build into a scratch prefix and checks one installed piece: MODE=man renders the
# manual page without a warning, MODE=completion sources the bash completion, MODE=pkgconfig
# builds and runs a consumer with the flags pkg-config gives. A missing tool skips the check.
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix
    OUTPUT_QUIET RESULT_VARIABLE rc)
if(rc)
    message(FATAL_ERROR "install failed: ${rc}")
endif()
set(prefix ${WORK_DIR}/prefix)
foreach(installed bin/epromtool share/man/man1/epromtool.1
        share/bash-completion/completions/epromtool)
    if(NOT EXISTS ${prefix}/${installed})
        message(FATAL_ERROR "not installed: ${installed}")
    endif()
endforeach()

if(MODE STREQUAL "man")
    find_program(GROFF groff)
    find_program(MAN man)
    if(NOT GROFF OR NOT MAN)
        message(STATUS "SKIPPED: groff or man is not installed")
        return()
    endif()
    execute_process(COMMAND ${GROFF} -man -ww -z ${prefix}/share/man/man1/epromtool.1
        RESULT_VARIABLE rc ERROR_VARIABLE err)
    if(rc OR NOT err STREQUAL "")
        message(FATAL_ERROR "groff: ${rc} ${err}")
    endif()
    execute_process(COMMAND ${CMAKE_COMMAND} -E env MANWIDTH=80 MAN_KEEP_STDERR=1
        ${MAN} --warnings -l ${prefix}/share/man/man1/epromtool.1
        RESULT_VARIABLE rc OUTPUT_VARIABLE page ERROR_VARIABLE err)
    if(rc OR NOT err STREQUAL "" OR NOT page MATCHES "EXIT STATUS")
        message(FATAL_ERROR "man -l: ${rc} ${err}")
    endif()
    foreach(word list verify show diff export import set fix sample --offset --dry-run
            --no-backup --index --version)
        string(REPLACE "-" "\\-" escaped ${word})
        file(READ ${prefix}/share/man/man1/epromtool.1 source)
        string(FIND "${source}" "${escaped}" at)
        if(at EQUAL -1)
            message(FATAL_ERROR "the manual page does not mention ${word}")
        endif()
    endforeach()
elseif(MODE STREQUAL "completion")
    find_program(BASH bash)
    if(NOT BASH)
        message(STATUS "SKIPPED: bash is not installed")
        return()
    endif()
    file(WRITE ${WORK_DIR}/completion.sh [=[
source "$1" || exit 1
complete -p epromtool >/dev/null || exit 2
COMP_WORDS=(epromtool s); COMP_CWORD=1; _epromtool
[[ " ${COMPREPLY[*]} " == *" set "* && " ${COMPREPLY[*]} " == *" sample "* ]] || exit 3
COMP_WORDS=(epromtool fix image --d); COMP_CWORD=3; _epromtool
[[ "${COMPREPLY[*]}" == "--dry-run" ]] || exit 4
COMP_WORDS=(epromtool set image --id 2 S); COMP_CWORD=5; _epromtool
[[ " ${COMPREPLY[*]} " == *" SN= "* ]] || exit 5
]=])
    execute_process(COMMAND ${BASH} ${WORK_DIR}/completion.sh
        ${prefix}/share/bash-completion/completions/epromtool
        RESULT_VARIABLE rc ERROR_VARIABLE err)
    if(rc OR NOT err STREQUAL "")
        message(FATAL_ERROR "completion: ${rc} ${err}")
    endif()
elseif(MODE STREQUAL "pkgconfig")
    find_program(PKG_CONFIG pkg-config)
    if(NOT PKG_CONFIG)
        message(STATUS "SKIPPED: pkg-config is not installed")
        return()
    endif()
    file(GLOB_RECURSE pc_files ${prefix}/*/EpromDatablock.pc)
    list(LENGTH pc_files found)
    if(NOT found EQUAL 1)
        message(FATAL_ERROR "EpromDatablock.pc installed ${found} times")
    endif()
    get_filename_component(pc_dir ${pc_files} DIRECTORY)
    set(ENV{PKG_CONFIG_PATH} ${pc_dir})
    execute_process(COMMAND ${PKG_CONFIG} --cflags --libs EpromDatablock
        RESULT_VARIABLE rc OUTPUT_VARIABLE flags ERROR_VARIABLE err
        OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(rc)
        message(FATAL_ERROR "pkg-config: ${rc} ${err}")
    endif()
    separate_arguments(flags UNIX_COMMAND "${flags}")
    execute_process(COMMAND ${CXX} -std=c++17 -fPIC ${CONSUMER_SRC}/main.cpp ${flags}
        -o ${WORK_DIR}/consumer RESULT_VARIABLE rc ERROR_VARIABLE err)
    if(rc)
        message(FATAL_ERROR "building the consumer with ${flags}: ${err}")
    endif()
    get_filename_component(lib_dir ${pc_dir} DIRECTORY)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${lib_dir}
        ${WORK_DIR}/consumer ${SAMPLE_IMAGE} RESULT_VARIABLE rc OUTPUT_VARIABLE out)
    if(rc OR NOT out MATCHES "consumer: ok")
        message(FATAL_ERROR "consumer run failed: ${rc} ${out}")
    endif()
else()
    message(FATAL_ERROR "unknown MODE ${MODE}")
endif()
