# tesselor_embedded: the interface documents and the interface font as data of the program. Each file is taken in by
# the assembler (.incbin), which costs no compile time, and the table of names is written at configure time.

# The documents in the order of the program's table. Documents under src/xaml/Theme follow in a table of their own.
set(TESSELOR_DOCUMENTS
  App MainView FieldCheckbox FieldDictionary FieldSmallText FieldText FieldInt FieldList FieldMixed FieldEnum
  FieldEnumFilterable FieldIntSlider FieldFloat FieldRawJson FieldLabel PanelBaseField FieldFilePath FieldObject
  NodePin ContentNode ReferenceNode GroupNode CommentNode NodesMenu NodeSearchPanel NodeEditorCanvas NodePanel
  CreateNodeButton NodeCategoryHeader NoticeBar LossPanel StatusLine VersionsPanel)

function(tesselor_find_font variable file)
  find_file(${variable} ${file}
    PATHS /usr/share/fonts/opentype/inter /usr/local/share/fonts/opentype/inter /usr/share/fonts/inter
    NO_DEFAULT_PATH)
  if(NOT ${variable})
    file(GLOB_RECURSE candidates /usr/share/fonts/*${file} /usr/local/share/fonts/*${file})
    if(candidates)
      list(GET candidates 0 found)
      set(${variable} ${found} CACHE FILEPATH "The interface font" FORCE)
    else()
      message(FATAL_ERROR "The interface font ${file} was not found. Install the Debian package fonts-inter, "
        "or set ${variable} to the file.")
    endif()
  endif()
endfunction()

tesselor_find_font(TESSELOR_FONT_REGULAR Inter-Regular.otf)
tesselor_find_font(TESSELOR_FONT_BOLD Inter-Bold.otf)
tesselor_find_font(TESSELOR_FONT_ITALIC Inter-Italic.otf)

set(embeddedDirectory ${CMAKE_BINARY_DIR}/embedded)
set(embeddedAssembler "    .section .rodata\n")
set(embeddedDeclarations "")
set(embeddedFiles)

# Takes one file in under a symbol; a zero byte behind it lets text be used as a C string.
macro(tesselor_embed symbol path)
  list(APPEND embeddedFiles ${path})
  string(APPEND embeddedAssembler
    "    .balign 16\n    .global ${symbol}\n    .global ${symbol}End\n"
    "${symbol}:\n    .incbin \"${path}\"\n${symbol}End:\n    .byte 0\n")
  string(APPEND embeddedDeclarations "extern const char ${symbol}[];\nextern const char ${symbol}End[];\n")
endmacro()

set(documentRows "")
set(missingDocuments)
foreach(document ${TESSELOR_DOCUMENTS})
  set(path ${CMAKE_SOURCE_DIR}/src/xaml/${document}.xaml)
  if(EXISTS ${path})
    tesselor_embed(tesselorDocument${document} ${path})
    string(APPEND documentRows "      Row(\"${document}.xaml\", tesselorDocument${document}, tesselorDocument${document}End),\n")
  else()
    list(APPEND missingDocuments ${document}.xaml)
  endif()
endforeach()
if(missingDocuments)
  list(JOIN missingDocuments ", " missingText)
  message(WARNING "Documents missing from src/xaml: ${missingText}")
endif()

file(GLOB presentDocuments CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/xaml/*.xaml)
foreach(path ${presentDocuments})
  get_filename_component(document ${path} NAME_WE)
  if(NOT document IN_LIST TESSELOR_DOCUMENTS)
    message(WARNING "src/xaml/${document}.xaml has no place in cmake/embed/EmbeddedData.cmake and is left out.")
  endif()
endforeach()

set(themeRows "")
file(GLOB themeDocuments CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/xaml/Theme/*.xaml)
foreach(path ${themeDocuments})
  get_filename_component(name ${path} NAME)
  string(MAKE_C_IDENTIFIER ${name} identifier)
  tesselor_embed(tesselorTheme${identifier} ${path})
  string(APPEND themeRows "      Row(\"Theme/${name}\", tesselorTheme${identifier}, tesselorTheme${identifier}End),\n")
endforeach()

tesselor_embed(tesselorFontRegular ${TESSELOR_FONT_REGULAR})
tesselor_embed(tesselorFontBold ${TESSELOR_FONT_BOLD})
tesselor_embed(tesselorFontItalic ${TESSELOR_FONT_ITALIC})
string(APPEND embeddedAssembler "    .section .note.GNU-stack,\"\",%progbits\n")

configure_file(${CMAKE_SOURCE_DIR}/cmake/embed/EmbeddedData.cpp.in ${embeddedDirectory}/EmbeddedData.cpp @ONLY)
file(CONFIGURE OUTPUT ${embeddedDirectory}/EmbeddedFiles.s CONTENT "@embeddedAssembler@" @ONLY)
set_source_files_properties(${embeddedDirectory}/EmbeddedFiles.s PROPERTIES OBJECT_DEPENDS "${embeddedFiles}")

add_library(tesselor_embedded STATIC ${embeddedDirectory}/EmbeddedData.cpp ${embeddedDirectory}/EmbeddedFiles.s)
target_include_directories(tesselor_embedded PUBLIC ${CMAKE_SOURCE_DIR}/src)
target_link_libraries(tesselor_embedded PRIVATE tesselor_options)
