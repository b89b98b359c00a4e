# <build>/shipped/{cnf,eft,snd,tmp}: what the program comes with, as it is installed: dist/ and what kdl_media makes.
# <build>/stage/{bin,cnf,eft,hst,log,snd,tmp}: the tree that the program runs in when it is not installed. It follows
# shipped/; what the host changed in it stays.
set(KDL_STAGE ${CMAKE_BINARY_DIR}/stage)
set(KDL_SHIPPED ${CMAKE_BINARY_DIR}/shipped)

# kdl_stage_program(<target>...): the program stands in the staged tree's bin/.
function(kdl_stage_program)
  foreach(program ${ARGN})
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${KDL_STAGE}/bin)
  endforeach()
endfunction()

file(GLOB_RECURSE shipped CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/dist/*)
set(shipped_stamp ${CMAKE_BINARY_DIR}/shipped.stamp)
add_custom_command(
  OUTPUT ${shipped_stamp}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/dist ${KDL_SHIPPED}
  COMMAND ${CMAKE_COMMAND} -E touch ${shipped_stamp}
  DEPENDS ${shipped}
  VERBATIM)

set(stage_stamp ${CMAKE_BINARY_DIR}/stage.stamp)
add_custom_command(
  OUTPUT ${stage_stamp}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${KDL_STAGE}/hst ${KDL_STAGE}/log
  COMMAND kdl-stage ${KDL_SHIPPED} ${KDL_STAGE}
  COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/tools/showcase/terminal.script ${KDL_STAGE}/bin/showcase.script
  COMMAND ${CMAKE_COMMAND} -E touch ${stage_stamp}
  DEPENDS kdl-stage ${shipped_stamp} ${KDL_MEDIA_STAMP} ${PROJECT_SOURCE_DIR}/tools/showcase/terminal.script
  COMMENT "Staging what is shipped"
  VERBATIM)
add_custom_target(kdl_stage ALL DEPENDS ${stage_stamp})
add_dependencies(kdl_stage kdl_media)
