# The tree of folders that stand beside the executable, as the program finds them when it runs:
# <build>/stage/{bin,cnf,eft,hst,log,snd,tmp}. What is shipped in dist/ is copied; what sounds is made by kdl_media.
set(KDL_STAGE ${CMAKE_BINARY_DIR}/stage)

# kdl_stage_program(<target>...): the program stands in the staged tree's bin/.
function(kdl_stage_program)
  foreach(program ${ARGN})
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${KDL_STAGE}/bin)
  endforeach()
endfunction()

file(GLOB_RECURSE shipped CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/dist/*)
set(stage_stamp ${KDL_STAGE}/.dist)
add_custom_command(
  OUTPUT ${stage_stamp}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${KDL_STAGE}/hst ${KDL_STAGE}/log ${KDL_STAGE}/tmp
  COMMAND ${CMAKE_COMMAND} -DFROM=${PROJECT_SOURCE_DIR}/dist -DTO=${KDL_STAGE} -P ${CMAKE_CURRENT_LIST_DIR}/StageShipped.cmake
  COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/tools/showcase/terminal.script ${KDL_STAGE}/bin/showcase.script
  COMMAND ${CMAKE_COMMAND} -E touch ${stage_stamp}
  DEPENDS ${shipped} ${PROJECT_SOURCE_DIR}/tools/showcase/terminal.script
  COMMENT "Staging what is shipped"
  VERBATIM)
add_custom_target(kdl_stage ALL DEPENDS ${stage_stamp})
add_dependencies(kdl_stage kdl_media)
