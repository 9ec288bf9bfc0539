# Sourced by the scripts here: a folder of their own to work in, which goes with them, and in it the
# store of the sample network, which TV_TOPO_STORE names. make_sample_store COMMAND makes that.
source_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
unset TV_EVENT_BROKER TV_ETC_PATH

make_sample_store() {
  export TV_TOPO_STORE=$scratch/store.db
  "$1" init > import.log
  "$1" import "$source_dir/data/networks/harbor-campus.rfc8345.json" >> import.log
}
