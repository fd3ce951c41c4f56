# Installation and the Debian package.
install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/resources/zrt.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/64x64/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zrt)
set(CPACK_PACKAGE_CONTACT "ZRT maintainers <zrt@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Maintenance of the SQL Server databases of Quorvex companies")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
# The libraries it links, found by dpkg-shlibdeps, and what it loads at run time.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "unixodbc, tdsodbc")
include(CPack)
