include("${CMAKE_CURRENT_LIST_DIR}/VKTTargets.cmake")
