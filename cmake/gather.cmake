# cmake -DTARGET=<folder> -DSOURCES=<folder>[;<folder>...] -P gather.cmake
# Makes the folder anew of what stands in the others. Files keep their times, so what did not change does not look new.
file(REMOVE_RECURSE ${TARGET})
foreach(source IN LISTS SOURCES)
  file(COPY ${source}/ DESTINATION ${TARGET})
endforeach()
