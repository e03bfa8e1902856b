// The library's version in its file, for what(1) and `sondrel --version`: a file of ELF has no version resource.

namespace {

[[gnu::used, gnu::retain]] constexpr char Identification[] = "@(#)VeskSondrel64 " VESK_VERSION;

} // namespace
