# Files that travel inside the library: pagivo_embed(preview kWatermarkFiles
# preview/embedded_pictures.h FILES preview/watermerk/concept.png ...) adds to the component a source
# that defines the array of byte spans that the header declares.
function(pagivo_embed component name header)
  cmake_parse_arguments(PARSE_ARGV 3 ARG "" "" "FILES")
  list(TRANSFORM ARG_FILES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  list(JOIN ARG_FILES "|" files)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  set(script ${PROJECT_SOURCE_DIR}/cmake/WriteEmbeddedFiles.cmake)
  add_custom_command(OUTPUT ${output} VERBATIM
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${output} -DNAME=${name} -DHEADER=${header} -DFILES=${files}
      -P ${script}
    DEPENDS ${ARG_FILES} ${script})
  target_sources(pagivo_${component} PRIVATE ${output})
  set_source_files_properties(${output} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
