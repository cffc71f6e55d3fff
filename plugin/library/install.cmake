# find_package(QmGoldTradeUI): the library, what it stands on, and the headers of hosts and cores,
# as the component QmGoldTradeUI. The folders are those that the headers name each other by.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/QmGoldTradeUI)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/QmGoldTradeUI)

set(contract account_records bank_records base_ui codes host_function market_records messages
  order_records parameter_records position_records record_layout ui_callback)
list(TRANSFORM contract PREPEND ${CMAKE_SOURCE_DIR}/plugin/contract/)
list(TRANSFORM contract APPEND .h)
install(FILES ${contract} DESTINATION ${header_folder}/plugin/contract COMPONENT QmGoldTradeUI)
install(FILES ${CMAKE_SOURCE_DIR}/plugin/qm_interface_ui.h ${CMAKE_SOURCE_DIR}/plugin/export.h
  DESTINATION ${header_folder}/plugin COMPONENT QmGoldTradeUI)
install(FILES ${CMAKE_SOURCE_DIR}/platform/types.h ${CMAKE_SOURCE_DIR}/platform/system.h
  ${CMAKE_SOURCE_DIR}/platform/export.h ${CMAKE_SOURCE_DIR}/platform/start.h
  DESTINATION ${header_folder}/platform COMPONENT QmGoldTradeUI)

set(libraries QmGoldTradeUI wintoolkit)
if(NOT WIN32)
  # Beside each other, which is where they look for each other.
  list(APPEND libraries winbase present_sdl)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/platform/win32/include/ DESTINATION ${header_folder}/win32
    COMPONENT QmGoldTradeUI FILES_MATCHING PATTERN *.h PATTERN winbase_hooks.h EXCLUDE)
  set_target_properties(wintoolkit winbase present_sdl PROPERTIES INSTALL_RPATH "$ORIGIN")
endif()
install(TARGETS ${libraries}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT QmGoldTradeUI
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT QmGoldTradeUI
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT QmGoldTradeUI)

configure_package_config_file(package.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/QmGoldTradeUIConfig.cmake
  INSTALL_DESTINATION ${package_folder} PATH_VARS header_folder CMAKE_INSTALL_LIBDIR
  CMAKE_INSTALL_BINDIR)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QmGoldTradeUIConfig.cmake DESTINATION ${package_folder}
  COMPONENT QmGoldTradeUI)
