# What CPack makes: Debian packages, a component each; for Windows one archive with everything.
include(CPackComponent)

set(CPACK_PACKAGE_NAME varnotix)
set(CPACK_PACKAGE_VENDOR Varnotix)
set(CPACK_PACKAGE_CONTACT "Varnotix developers <varnotix@localhost>" CACHE STRING "Who answers for the packages")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL runtime development tool)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME varnotix-${PROJECT_VERSION}-win32)
else()
    set(CPACK_GENERATOR DEB)
endif()

# The library's package is named after its ABI. The data files have one place for all versions, so only one version can
# be installed at a time: the name that all of them provide and conflict with says so.
set(library libvarnotix${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_PROVIDES libvarnotix)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONFLICTS libvarnotix)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_REPLACES libvarnotix)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvarnotix-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOL_PACKAGE_NAME varnotix)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION science)

set(purpose "Varnotix builds, reads, edits and writes medical image objects.")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${purpose}
This package holds the library and its data dictionary.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${purpose}
This package holds the headers, and what CMake and pkg-config need to find the library.")
set(CPACK_COMPONENT_TOOL_DESCRIPTION "${purpose}
This package holds the command-line tool varnotix.")

include(CPack)
cpack_add_component(runtime DISPLAY_NAME "Library and data")
cpack_add_component(development DISPLAY_NAME "Headers and development files" DEPENDS runtime)
cpack_add_component(tool DISPLAY_NAME "Command-line tool" DEPENDS runtime)
