# What `cmake --install` puts where, and the Debian package that CPack makes of it.
# `tools/package` makes that and the ZIP of what the Windows build installs.

if(WIN32)
  # A ZIP is unpacked into one folder and used there.
  set(CMAKE_INSTALL_BINDIR .)
  set(CMAKE_INSTALL_DOCDIR .)
else()
  include(GNUInstallDirs)
  set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/tessara-animation)
endif()
# Packages need the programs and the documentation, not the tests.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(programs TessaraAnimate TessaraAnimationConsole)
install(TARGETS ${programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(documents)
set(source ${CMAKE_CURRENT_SOURCE_DIR})
set(packaging ${source}/cmake/packaging)
set(documents_dir ${CMAKE_CURRENT_BINARY_DIR}/documents)

# The pages become HTML, which every desktop shows by a double click; where there is no cmark-gfm
# they are installed as they are.
find_program(CMARK_GFM cmark-gfm)
mark_as_advanced(CMARK_GFM)
file(GLOB pages RELATIVE ${source} CONFIGURE_DEPENDS ${source}/docs/*.md)
foreach(page IN ITEMS README.md CHANGELOG.md CONTRIBUTING.md LISTS pages)
  set(document ${source}/${page})
  if(CMARK_GFM)
    string(REGEX REPLACE "\\.md$" ".html" html ${page})
    set(document ${documents_dir}/${html})
    add_custom_command(
      OUTPUT ${document}
      COMMAND ${CMAKE_COMMAND} -D CMARK_GFM=${CMARK_GFM} -D PAGE=${source}/${page}
              -D HTML=${document} -P ${packaging}/html_page.cmake
      DEPENDS ${page} ${packaging}/html_page.cmake
      VERBATIM)
    list(APPEND documents ${document})
  endif()
  get_filename_component(folder ${page} DIRECTORY)
  install(FILES ${document} DESTINATION ${CMAKE_INSTALL_DOCDIR}/${folder})
endforeach()
install(FILES docs/wave.gif DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)

# The licences of what is linked into the programs ask to be passed on with them.
set(mingw_licence /usr/share/doc/mingw-w64-x86-64-dev/copyright)
set(CLI11_licence /usr/share/doc/libcli11-dev/copyright)
set(nlohmann-json_licence /usr/share/doc/nlohmann-json3-dev/copyright)

if(WIN32)
  install(FILES ${mingw_licence} DESTINATION licences RENAME mingw-w64.txt OPTIONAL)
  install(FILES ${CLI11_licence} DESTINATION licences RENAME cli11.txt OPTIONAL)
  install(FILES ${nlohmann-json_licence} DESTINATION licences RENAME nlohmann-json.txt OPTIONAL)
  configure_file(${packaging}/read_me_first.txt.in "${documents_dir}/READ ME FIRST.txt"
                 @ONLY NEWLINE_STYLE CRLF)
  install(FILES "${documents_dir}/READ ME FIRST.txt" DESTINATION .)
else()
  foreach(program TessaraAnimate TessaraAnimationConsole)
    configure_file(docs/man/${program}.1.in ${documents_dir}/${program}.1 @ONLY)
    set(document ${documents_dir}/${program}.1.gz)
    add_custom_command(
      OUTPUT ${document}
      COMMAND gzip -9nkf ${program}.1
      DEPENDS ${documents_dir}/${program}.1
      WORKING_DIRECTORY ${documents_dir}
      VERBATIM)
    list(APPEND documents ${document})
    install(FILES ${document} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  endforeach()

  set(maintainer "Tessara animation maintainers <maintainers@tessara.example>")
  set(changelog ${documents_dir}/changelog)
  add_custom_command(
    OUTPUT ${changelog}.gz
    COMMAND awk -f ${packaging}/debian_changelog.awk -v package=tessara-animation
            -v version=${PROJECT_VERSION} -v maintainer=${maintainer}
            ${source}/CHANGELOG.md > ${changelog}
    COMMAND gzip -9nf ${changelog}
    DEPENDS CHANGELOG.md ${packaging}/debian_changelog.awk
    VERBATIM)
  list(APPEND documents ${changelog}.gz)
  install(FILES ${changelog}.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})
  file(READ ${packaging}/copyright copyright)
  foreach(library CLI11 nlohmann-json)
    if(EXISTS ${${library}_licence})
      file(READ ${${library}_licence} licence)
      string(APPEND copyright "\nThe programs contain ${library}, under these terms:\n\n${licence}")
    endif()
  endforeach()
  file(CONFIGURE OUTPUT ${documents_dir}/copyright CONTENT "${copyright}" @ONLY)
  install(FILES ${documents_dir}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()

if(NOT WIN32)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "turn a folder of numbered images into one animation")
  set(CPACK_PACKAGE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/packages)
  set(CPACK_STRIP_FILES ON)
  set(CPACK_PRE_BUILD_SCRIPTS ${packaging}/fix_times.cmake)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_PACKAGE_NAME tessara-animation)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${maintainer})
  set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS ffmpeg)
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS libgdiplus)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"TessaraAnimate finds the frames in a folder, orders them by the numbers in
their names, has ffmpeg encode them as MP4, GIF, AVI, WMV, FLV, SWF, MOV, WebM
or animated PNG, and proves the result before it is put in place. It only
reads the frames, unless told to delete them afterwards.
TessaraAnimationConsole does the same for software that calls it with frames
that are no longer needed: it deletes them.")
  include(CPack)
endif()

add_custom_target(documents ALL DEPENDS ${documents})
add_custom_target(packaged)
add_dependencies(packaged documents ${programs})
