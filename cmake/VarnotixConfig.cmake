include(${CMAKE_CURRENT_LIST_DIR}/VarnotixTargets.cmake)
