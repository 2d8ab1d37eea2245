# What the targets of this project have in common.

# The warning set and the language mode that every target of the project compiles under.
function(varnotix_warnings target)
    if(MSVC)
        # 4251 and 4275 want standard templates in exported classes to be exported too: host and library share one C++
        # runtime. The functions that the C runtime calls unsafe are those of the standard.
        target_compile_options(${target} PRIVATE
            /W4 /permissive- /Zc:preprocessor /Zc:__cplusplus /EHsc /utf-8 /wd4251 /wd4275)
        target_compile_definitions(${target} PRIVATE _CRT_SECURE_NO_WARNINGS NOMINMAX)
        if(VARNOTIX_WERROR)
            target_compile_options(${target} PRIVATE /WX)
        endif()
        return()
    endif()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow)
    if(VARNOTIX_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# An executable of the project: linked to the library as any host is.
function(varnotix_executable target)
    add_executable(${target} ${ARGN})
    varnotix_warnings(${target})
    target_link_libraries(${target} PRIVATE Varnotix::Varnotix)
    if(MINGW)
        # The stack of an ordinary Windows program, so that the tests prove the library is content with it.
        target_link_options(${target} PRIVATE -Wl,--stack,1048576)
    endif()
endfunction()

# On Windows, gives a program the code page UTF-8, so that its arguments and file names can hold any character, as
# elsewhere.
function(varnotix_utf8 target)
    set(folder ${PROJECT_SOURCE_DIR}/tools/varnotix/windows)
    if(MSVC)
        target_sources(${target} PRIVATE ${folder}/varnotix.manifest)
    elseif(WIN32)
        enable_language(RC)
        target_sources(${target} PRIVATE ${folder}/varnotix.rc)
    endif()
endfunction()

# Puts copies of the data files into a folder, renewed whenever the originals change.
function(varnotix_copy_data folder)
    file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/*.txt)
    foreach(file IN LISTS files)
        get_filename_component(name ${file} NAME)
        configure_file(${file} ${folder}/${name} COPYONLY)
    endforeach()
endfunction()

# MinGW: an exception crosses from the DLL into the host only through one libgcc and libstdc++ that both share, so these
# travel as DLLs beside the library.
function(varnotix_copy_runtime target)
    foreach(name libgcc_s_dw2-1.dll libstdc++-6.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
            OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        if(NOT EXISTS ${path})
            message(FATAL_ERROR "${CMAKE_CXX_COMPILER} does not know where its ${name} is")
        endif()
        list(APPEND runtime ${path})
    endforeach()
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E copy_if_different ${runtime} $<TARGET_FILE_DIR:${target}>)
    install(FILES ${runtime} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
endfunction()

# One GoogleTest program for a folder of tests. It runs in a folder of its own that holds the data files, and is given:
#   VARNOTIX_SAMPLES  folder of DICOM sample files, or empty
#   VARNOTIX_DATA     the project's data folder
#   VARNOTIX_BIN      folder of the built programs: the command-line host and the examples
function(varnotix_test folder)
    set(target test_${folder})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
    if(NOT sources)
        return()
    endif()
    varnotix_executable(${target} ${sources})
    # What is under test is the optimised library; optimising the tests too would double the time to build them, and
    # with the sanitizers the compiler then warns of the standard library's own regular expressions.
    target_compile_options(${target} PRIVATE $<IF:$<BOOL:${MSVC}>,/Od,-O0>)
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/support)
    target_link_libraries(${target} PRIVATE GTest::gtest GTest::gtest_main)
    foreach(program varnotix ${VARNOTIX_EXAMPLE_TARGETS})
        if(TARGET ${program})
            add_dependencies(${target} ${program})
        endif()
    endforeach()

    set(workFolder ${PROJECT_BINARY_DIR}/run/${folder})
    varnotix_copy_data(${workFolder})
    set(environment
        VARNOTIX_SAMPLES=${VARNOTIX_SAMPLES}
        VARNOTIX_DATA=${PROJECT_SOURCE_DIR}/data
        VARNOTIX_BIN=${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    # Wine takes most of a second to start each of the hundreds of programs that the tools' tests run.
    set(limit 240)
    if(CMAKE_CROSSCOMPILING)
        set(limit 480)
    endif()
    # The tools' tests take as long as all others together: in parts, they keep every core busy.
    set(parts 1)
    if(folder STREQUAL "tools")
        set(parts 4)
    endif()
    math(EXPR last "${parts} - 1")
    foreach(part RANGE ${last})
        set(name ${target})
        if(parts GREATER 1)
            set(name ${target}_${part})
        endif()
        add_test(NAME ${name} COMMAND ${target} WORKING_DIRECTORY ${workFolder})
        set_tests_properties(${name} PROPERTIES TIMEOUT ${limit}
            ENVIRONMENT "${environment};GTEST_TOTAL_SHARDS=${parts};GTEST_SHARD_INDEX=${part}")
    endforeach()
endfunction()
