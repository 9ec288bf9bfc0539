# Sourced by the scripts here: a folder of their own to work in, which goes with them, and in it the
# store of the sample network, which TV_TOPO_STORE names. make_sample_store COMMAND makes that.
source_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
unset TV_EVENT_BROKER TV_ETC_PATH

# Runs a JVM. A complaint of its checks fails it, whatever it ends with.
without_complaints() {
  local result=0
  "$@" > output 2>&1 || result=$?
  cat output
  if grep -qE 'in native method|JNI local refs' output; then
    echo "the JVM complains of a call of the bridge, see above" >&2
    return 1
  fi
  return "$result"
}

make_sample_store() {
  export TV_TOPO_STORE=$scratch/store.db
  "$1" init > import.log
  "$1" import "$source_dir/data/networks/harbor-campus.rfc8345.json" >> import.log
}
