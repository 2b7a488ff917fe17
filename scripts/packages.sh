# Debian packages by what needs them. Sourced by ./run and ./test.

BUILD_PACKAGES="g++ cmake ninja-build qt6-base-dev qt6-svg-dev qt6-translations-l10n libgl-dev
  libcli11-dev nlohmann-json3-dev libeigen3-dev fonts-dejavu-core"
TEST_PACKAGES="libgtest-dev libgmock-dev librapidcheck-dev clang libclang-rt-dev python3 xvfb xauth dbus"
