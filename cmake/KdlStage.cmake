# <build>/shipped/{cnf,eft,hlp,snd,tmp}: what the program comes with, as it is installed: dist/, the host's guide, and what
# kdl_media makes.
# <build>/stage/{bin,cnf,eft,hlp,hst,log,snd,tmp}: the tree that the program runs in when it is not installed. It follows
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
set(guide ${PROJECT_SOURCE_DIR}/docs/guide)
set(guide_sheet ${PROJECT_SOURCE_DIR}/tools/guide.xsl)
set(message_catalogue ${PROJECT_SOURCE_DIR}/dist/cnf/LogMessage.xml)
file(GLOB guide_pictures CONFIGURE_DEPENDS ${guide}/images/*.png)
set(shipped_stamp ${CMAKE_BINARY_DIR}/shipped.stamp)
add_custom_command(
  OUTPUT ${shipped_stamp}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${PROJECT_SOURCE_DIR}/dist ${KDL_SHIPPED}
  # Without the pages of messages that are gone.
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${KDL_SHIPPED}/hlp
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${guide}/images ${KDL_SHIPPED}/hlp/images
  COMMAND ${CMAKE_COMMAND} -E copy ${guide}/guide.css ${KDL_SHIPPED}/hlp
  COMMAND ${XSLTPROC} --stringparam catalogue ${message_catalogue} --stringparam words ${guide}/words.xml
          --output ${KDL_SHIPPED}/hlp/index.html ${guide_sheet} ${guide}/guide.xml
  COMMAND ${CMAKE_COMMAND} -E touch ${shipped_stamp}
  DEPENDS ${shipped} ${guide}/guide.xml ${guide}/guide.css ${guide}/words.xml ${guide_sheet} ${guide_pictures}
  COMMENT "Gathering what is shipped, making the host's guide"
  VERBATIM)
add_custom_target(kdl_shipped DEPENDS ${shipped_stamp})

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
add_dependencies(kdl_stage kdl_media kdl_shipped)
