# cmake -DFROM=<dist> -DTO=<staged tree> -P StageShipped.cmake
# Copies what is new; a file that was changed in the staged tree since (the host's own settings, say) stays.
file(GLOB_RECURSE shipped RELATIVE ${FROM} ${FROM}/*)
foreach(file ${shipped})
  if(${FROM}/${file} IS_NEWER_THAN ${TO}/${file})
    get_filename_component(folder ${TO}/${file} DIRECTORY)
    file(COPY ${FROM}/${file} DESTINATION ${folder})
    file(TOUCH ${TO}/${file})
  endif()
endforeach()
