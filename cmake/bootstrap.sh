# Shared by `vel` and `check`: installs what is missing, configures once, builds incrementally. Needs $root, the
# project's directory. All messages go to standard error.

vel_say() { echo "vel: $*" >&2; }

# vel_missing PACKAGE...: prints those of these Debian packages that are not installed.
vel_missing() {
  missing=
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing="$missing $package"
  done
  [ -z "$missing" ] || echo "${missing# }"
}

# vel_install PACKAGE...: installs Debian packages; needs $as_root. The output of apt goes to $log.
vel_install() { DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y --no-install-recommends "$@" >>"$log" 2>&1; }

# vel_need PACKAGE...: installs the Debian packages that are missing, or prints what to install. A package that cannot
# be installed does not prevent the others.
vel_need() {
  missing=$(vel_missing "$@")
  [ -z "$missing" ] && return 0

  if [ "$(id -u)" = 0 ]; then
    as_root=
  elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    as_root="sudo -n"
  else
    vel_say "these packages are missing; install them and call again:"
    vel_say "  sudo apt-get install $missing"
    return 1
  fi
  vel_say "installing $missing"
  log=$(mktemp)
  if ! vel_install $missing && $as_root apt-get update >"$log" 2>&1 && ! vel_install $missing; then
    for package in $missing; do vel_install "$package"; done
  fi
  missing=$(vel_missing $missing)
  if [ -n "$missing" ]; then
    tail -n 5 "$log" >&2
    vel_say "could not install $missing"
  fi
  rm -f "$log"
  [ -z "$missing" ]
}

# vel_compiler: installs a compiler and build tools if they are missing. Every build needs them.
vel_compiler() {
  if command -v cmake >/dev/null && command -v ninja >/dev/null && command -v c++ >/dev/null; then return 0; fi
  vel_need g++ cmake ninja-build
}

# What the program and its translators need, and what the tests and benchmarks need in addition. Parts whose packages
# are missing are not built, and a message lists them.
vel_program_packages="libcli11-dev nlohmann-json3-dev libexpat1-dev libpng-dev libzip-dev libocct-data-exchange-dev"
vel_test_packages="libgtest-dev libbenchmark-dev chromium"

# Foreign programs with which tests read what `vel` writes. Hundreds of megabytes: installed only on request.
vel_foreign_packages="lib3mf-dev assimp-utils admesh gmsh"
vel_gltf_validator=gltf-validator@2.0.0-dev.3.10

# vel_foreign: installs the foreign programs, and the npm glTF validator below the build directory. A test whose program
# cannot be installed is skipped.
vel_foreign() {
  vel_need $vel_foreign_packages || true
  directory=$root/build/foreign
  [ "$(cat "$directory/.installed" 2>/dev/null)" = "$vel_gltf_validator" ] && return 0
  if ! command -v npm >/dev/null || ! command -v node >/dev/null; then vel_need nodejs npm || return 0; fi
  vel_say "installing $vel_gltf_validator"
  log=$(mktemp)
  if npm install --prefix "$directory" --no-save --no-audit --no-fund --ignore-scripts "$vel_gltf_validator" \
    >"$log" 2>&1; then
    echo "$vel_gltf_validator" >"$directory/.installed"
  else
    tail -n 5 "$log" >&2
    vel_say "could not install $vel_gltf_validator"
  fi
  rm -f "$log"
}

# vel_configure PRESET [-DNAME=VALUE...]: configures unless that was done with the packages that are installed now. The
# directory records the packages that were missing, and in .left-out what is therefore not built.
vel_configure() {
  directory=$(vel_build_directory "$1")
  without=$directory/.configured-without
  missing=$(vel_missing $vel_program_packages $vel_test_packages $vel_foreign_packages)
  [ -f "$directory/build.ninja" ] && [ "$(cat "$without" 2>/dev/null)" = "$missing" ] && return 0
  log=$(mktemp)
  if (cd "$root" && cmake --preset "$@") >"$log" 2>&1; then
    sed -n 's/^-- vel: /vel: /p' "$log" | tee "$directory/.left-out" >&2
    rm -f "$log"
    echo "$missing" >"$without"
    return 0
  fi
  cat "$log" >&2
  rm -f "$log"
  # A half-configured directory would hide the failure from the next call.
  rm -f "$directory/build.ninja" "$directory/CMakeCache.txt"
  return 1
}

vel_build_directory() { if [ "$1" = release ]; then echo "$root/build"; else echo "$root/build-$1"; fi; }

# vel_build PRESET TARGET...: builds; the compiler's output is shown only if it fails.
vel_build() {
  directory=$(vel_build_directory "$1")
  shift
  log=$(mktemp)
  if [ -t 2 ]; then
    # Show progress on a terminal.
    cmake --build "$directory" --target "$@" 2>&1 | tee "$log" | sed -un 's/^\[\([0-9]*\/[0-9]*\)\].*/\1/p' |
      while read -r step; do printf '\rvel: built %s ' "$step" >&2; done
    printf '\r                          \r' >&2
    grep -q '^ninja: build stopped\|^FAILED:\|^ninja: error' "$log" && failed=1 || failed=0
  else
    cmake --build "$directory" --target "$@" >"$log" 2>&1 && failed=0 || failed=1
  fi
  if [ "$failed" = 0 ]; then
    rm -f "$log"
    return 0
  fi
  grep -v '^\[' "$log" | tail -n 60 >&2
  rm -f "$log"
  return 1
}

# vel_locked COMMAND...: allows one build at a time in this tree.
vel_locked() {
  if ! mkdir -p "$root/build" 2>/dev/null || [ ! -w "$root/build" ]; then
    vel_say "cannot build in $root/build: it may not be written to; copy the project to a directory of your own"
    return 1
  fi
  exec 9>"$root/build/.lock"
  command -v flock >/dev/null && flock 9
  "$@" 9>&-
  status=$?
  exec 9>&-
  return $status
}
