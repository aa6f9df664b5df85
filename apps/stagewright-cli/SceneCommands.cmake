# The verbs that run the canvas scene headless.
target_sources(stagewright-cli PRIVATE ${CMAKE_CURRENT_LIST_DIR}/SceneCommands.cpp)
target_link_libraries(stagewright-cli PRIVATE stagewright_scene)
