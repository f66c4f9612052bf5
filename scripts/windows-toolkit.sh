#!/usr/bin/env bash
# Makes the libraries that the editor needs on Windows, and those that its tests need, out of Debian's
# own source packages with mingw-w64. Runs once: everything is in the folder that windows_toolkit names,
# about 45 minutes of two cores. An interrupted run continues where it stopped. To make all of it anew,
# remove the folder.
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${toolkit_packages[@]}"

prefix=$windows_toolkit/prefix
sources=$windows_toolkit/sources
builds=$windows_toolkit/build
mkdir -p "$prefix"/{include,lib} "$sources" "$builds"

# is_done NAME, mark_done NAME: which libraries are complete.
is_done() { [ -e "$windows_toolkit/$1.done" ]; }
mark_done() { touch "$windows_toolkit/$1.done"; }

# The source entries are made from this system's package lists and kept apart from its configuration.
apt_sources() {
    local lists=$windows_toolkit/apt
    mkdir -p "$lists/partial"
    # shellcheck disable=SC2016 # apt fills these in
    apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | awk '!seen[$0]++' >"$lists/sources.list"
    [ -s "$lists/sources.list" ] || die "apt has no package lists of Debian; run apt-get update"
    from_sources=(-q -o "Dir::Etc::sourcelist=$lists/sources.list" -o Dir::Etc::sourceparts=/dev/null
        -o "Dir::State::lists=$lists" -o APT::Sandbox::User=root)
    compgen -G "$lists/*Sources*" >/dev/null || apt-get "${from_sources[@]}" update
}

# unpack PACKAGE: sets source to the folder with the package's sources, Debian's fixes applied.
unpack() {
    local name=$1 archive download=$sources/$1.download
    source=$sources/$name
    [ ! -d "$source" ] || return 0
    apt_sources
    say "Sources of $name"
    rm -rf "$source.unpacked"
    mkdir -p "$download"
    (cd "$download" && apt-get "${from_sources[@]}" source --download-only "$name") || return 1
    archive=$(echo "$download"/*.dsc)
    dpkg-source -x "$archive" "$source.unpacked"
    echo "$name $(sed -n 's/^Version: //p' "$archive" | tail -1)" >>"$windows_toolkit/versions.txt"
    mv "$source.unpacked" "$source"
    rm -rf "$download"
}

# cross_build NAME SOURCE CMAKE-OPTION...: configures, builds and installs a project.
cross_build() {
    local name=$1 from=$2
    shift 2
    say "Building $name"
    CMAKE_PREFIX_PATH=$prefix cmake -S "$from" -B "$builds/$name" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchain-mingw-w64.cmake" -DWINE= \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" "$@"
    cmake --build "$builds/$name" -j "$jobs"
    cmake --install "$builds/$name" >/dev/null
}

# static_library NAME FOLDER FILE...: compiles C files of a folder into lib/libNAME.a.
static_library() {
    local name=$1 from=$2 file
    shift 2
    say "Building $name"
    mkdir -p "$builds/$name"
    for file in "$@"; do
        x86_64-w64-mingw32-gcc-posix -O2 -I"$prefix/include" -c "$from/$file.c" \
            -o "$builds/$name/$file.o"
    done
    x86_64-w64-mingw32-ar rcs "$prefix/lib/lib$name.a" "$builds/$name"/*.o
}

# What the editor has no use for is off, and what this compiler cannot compile.
build_qt() {
    local feature options=()
    for feature in opengl vulkan sql dbus network printsupport xml concurrent icu glib pkg_config \
        system_zlib tabletevent direct2d direct2d1_1 directwrite3; do
        options+=("-DFEATURE_$feature=OFF")
    done
    unpack qt6-base
    cross_build qt "$source" "${options[@]}" -DINPUT_opengl=no -DFEATURE_testlib=ON \
        -DBUILD_SHARED_LIBS=ON -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF
    mark_done qt
}

# zlib's own CMake files need a resource that Debian leaves out.
build_zlib() {
    unpack zlib
    static_library z "$source" adler32 compress crc32 deflate gzclose gzlib gzread gzwrite \
        infback inffast inflate inftrees trees uncompr zutil
    cp "$source"/{zlib,zconf}.h "$prefix/include"
    mark_done zlib
}

build_minizip() {
    unpack minizip
    static_library minizip "$source" ioapi iowin32 unzip zip
    mkdir -p "$prefix/include/minizip"
    cp "$source"/{ioapi,iowin32,unzip,zip}.h "$prefix/include/minizip"
    mark_done minizip
}

build_pugixml() {
    unpack pugixml
    cross_build pugixml "$source"
    mark_done pugixml
}

# GoogleTest's binary package is its source.
build_googletest() {
    cross_build googletest /usr/src/googletest
    echo "googletest $(dpkg-query -W -f '${Version}' googletest)" >>"$windows_toolkit/versions.txt"
    mark_done googletest
}

build_rapidcheck() {
    unpack rapidcheck || return 1
    cross_build rapidcheck "$source" -DRC_ENABLE_GTEST=ON && mark_done rapidcheck
}

# What a package with these libraries must carry. Debian's file of each package has all its notices, also
# those of the libraries that Qt contains.
install_licences() {
    local texts=$prefix/share/licenses library
    say "Licences"
    mkdir -p "$texts"
    for library in qt6-base zlib minizip pugixml; do
        cp "$sources/$library/debian/copyright" "$texts/$library.txt"
    done
    cp "$sources"/qt6-base/LICENSES/{LGPL,GPL}-3.0-only.txt "$texts"
    cp /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright "$texts/gcc-runtime.txt"
    cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$texts/mingw-w64.txt"
}

for library in zlib minizip pugixml qt googletest; do
    is_done "$library" || "build_$library"
done
install_licences
# Serves a few tests only, and not every mirror has its source.
is_done rapidcheck || build_rapidcheck || say "No RapidCheck: property tests will be left out"
mark_done toolkit
say "The toolkit for Windows is in $prefix"
sort -u "$windows_toolkit/versions.txt"
