include(CMakePackageConfigHelpers)

set(CARDWRIGHT_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/cardwright)

install(
  TARGETS cardwright
  EXPORT cardwrightTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/cardwright DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(
  EXPORT cardwrightTargets
  NAMESPACE cardwright::
  DESTINATION ${CARDWRIGHT_CMAKE_DIR})

configure_package_config_file(cmake/cardwrightConfig.cmake.in
                              ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfig.cmake
                              INSTALL_DESTINATION ${CARDWRIGHT_CMAKE_DIR})
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/cardwrightConfigVersion.cmake
        DESTINATION ${CARDWRIGHT_CMAKE_DIR})

install(FILES LICENSE NOTICE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY licenses DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(CARDWRIGHT_BUILD_TOOL)
  install(TARGETS cardwright_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
