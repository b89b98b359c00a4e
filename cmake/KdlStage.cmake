# <build>/shipped/{cnf,eft,hlp,snd,tmp}: what the program comes with, as it is installed: dist/, what kdl_media makes, and
# the host's guide. It is made anew as a whole, so what is no longer shipped is gone.
# <build>/stage/{bin,cnf,eft,hlp,hst,log,snd,tmp}: the tree that the program runs in when it is not installed. It follows
# shipped/ by the rules of an installed program: what the host changed in it stays, and so does what is no longer shipped.
set(KDL_STAGE ${CMAKE_BINARY_DIR}/stage)
set(KDL_SHIPPED ${CMAKE_BINARY_DIR}/shipped)

# kdl_stage_program(<target>...): the program stands in the staged tree's bin/.
function(kdl_stage_program)
  foreach(program ${ARGN})
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${KDL_STAGE}/bin)
  endforeach()
endfunction()

kdl_inputs(dist_files dist ${PROJECT_SOURCE_DIR}/dist/*)
set(guide ${PROJECT_SOURCE_DIR}/docs/guide)
set(guide_sheet ${PROJECT_SOURCE_DIR}/tools/guide.xsl)
kdl_inputs(guide_pictures guide_pictures ${guide}/images/*.png)
set(message_catalogue ${PROJECT_SOURCE_DIR}/dist/cnf/LogMessage.xml)
set(gather ${PROJECT_SOURCE_DIR}/cmake/gather.cmake)
set(shipped_stamp ${CMAKE_BINARY_DIR}/shipped.stamp)
add_custom_command(
  OUTPUT ${shipped_stamp}
  COMMAND ${CMAKE_COMMAND} -DTARGET=${KDL_SHIPPED} "-DSOURCES=${PROJECT_SOURCE_DIR}/dist;${KDL_MEDIA}" -P ${gather}
  COMMAND ${CMAKE_COMMAND} -DTARGET=${KDL_SHIPPED}/hlp/images -DSOURCES=${guide}/images -P ${gather}
  COMMAND ${CMAKE_COMMAND} -E copy ${guide}/guide.css ${KDL_SHIPPED}/hlp
  COMMAND ${XSLTPROC} --stringparam catalogue ${message_catalogue} --stringparam words ${guide}/words.xml
          --output ${KDL_SHIPPED}/hlp/index.html ${guide_sheet} ${guide}/guide.xml
  COMMAND ${CMAKE_COMMAND} -E touch ${shipped_stamp}
  DEPENDS ${gather} ${dist_files} ${KDL_MEDIA}.stamp ${guide}/guide.xml ${guide}/guide.css ${guide}/words.xml ${guide_sheet}
          ${guide_pictures}
  COMMENT "Gathering what is shipped, making the host's guide"
  VERBATIM)
add_custom_target(kdl_shipped DEPENDS ${shipped_stamp})
add_dependencies(kdl_shipped kdl_media)

set(stage_stamp ${CMAKE_BINARY_DIR}/stage.stamp)
add_custom_command(
  OUTPUT ${stage_stamp}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${KDL_STAGE}/hst ${KDL_STAGE}/log
  COMMAND kdl-stage ${KDL_SHIPPED} ${KDL_STAGE}
  COMMAND ${CMAKE_COMMAND} -E copy ${PROJECT_SOURCE_DIR}/tools/showcase/terminal.script ${KDL_STAGE}/bin/showcase.script
  COMMAND ${CMAKE_COMMAND} -E touch ${stage_stamp}
  DEPENDS kdl-stage ${shipped_stamp} ${PROJECT_SOURCE_DIR}/tools/showcase/terminal.script
  COMMENT "Staging what is shipped"
  VERBATIM)
add_custom_target(kdl_stage ALL DEPENDS ${stage_stamp})
add_dependencies(kdl_stage kdl_shipped)
