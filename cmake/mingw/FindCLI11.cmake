include(HostHeaders)
use_host_headers(CLI11::CLI11 CLI)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CLI11 REQUIRED_VARS CLI_HOST_HEADERS)
