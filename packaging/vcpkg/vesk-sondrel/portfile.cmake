# Built from the source archive of `make dist`. The publisher sets where it is, and the sum that `make dist` prints:
#
#   vcpkg install vesk-sondrel --overlay-ports=packaging/vcpkg
#
# VESK_SONDREL_SOURCES is the address of the directory that has the archive: file:///... for one at hand.
set(name VeskSondrel64-${VERSION}-src.tar.gz)
vcpkg_download_distfile(archive
  URLS "$ENV{VESK_SONDREL_SOURCES}/${name}"
  FILENAME ${name}
  SHA512 $ENV{VESK_SONDREL_SHA512})
vcpkg_extract_source_archive(SOURCE_PATH ARCHIVE "${archive}")

vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}" OPTIONS -DVESK_FOR_PACKAGERS=ON)
vcpkg_cmake_install()
vcpkg_copy_pdbs()
vcpkg_copy_tools(TOOL_NAMES sondrel AUTO_CLEAN)
vcpkg_cmake_config_fixup(PACKAGE_NAME VeskSondrel64 CONFIG_PATH lib/cmake/VeskSondrel64)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
