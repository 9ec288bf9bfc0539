#include "zntopo/core/MessageCatalogue.h"

#include <cerrno>
#include <cstdlib>
#include <map>
#include <mutex>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "zntopo/core/detail/CatalogueFiles.h"
#include "zntopo/platform/tv/DataPath.h"
#include "zntopo/platform/tv/MsgCatalogue.h"

namespace zntopo {

namespace detail {

std::vector<std::string> catalogueFiles(const std::string& dataDirectory,
                                        const std::string& language) {
  std::vector<std::string> files;
  // A language is one name of a folder, never a way out of the data directory.
  if (language.empty() || language.front() == '.' || language.find('/') != std::string::npos) {
    return files;
  }
  // "de_AT.UTF-8@euro", "de_AT.UTF-8", "de_AT", "de"
  for (std::string name = language;;) {
    files.push_back(dataDirectory + "/messages/" + name + "/zorb_topo.cat");
    const auto end = name.find_last_of("@._");
    if (end == std::string::npos || end == 0) return files;
    name.resize(end);
  }
}

}  // namespace detail

namespace {

constexpr int kFirstUse = 1;
constexpr int kSets = 256;

nl_catd noCatalogue() { return reinterpret_cast<nl_catd>(-1); }

class ErrnoKeeper {
 public:
  ErrnoKeeper() : saved_(errno) { errno = 0; }
  ~ErrnoKeeper() { errno = saved_; }
  ErrnoKeeper(const ErrnoKeeper&) = delete;
  ErrnoKeeper& operator=(const ErrnoKeeper&) = delete;

 private:
  int saved_;
};

// The catalogue that NLSPATH leads to, else the installed one of the same language. The
// environment stays as the caller has it.
nl_catd openCatalogue() {
  nl_catd catalogue = catopen("zorb_topo", 0);
  const char* const language = std::getenv("LANG");
  if (catalogue != noCatalogue() || !language) return catalogue;
  for (const std::string& file : detail::catalogueFiles(tv::dataDirectory(), language)) {
    catalogue = catopen(file.c_str(), 0);
    if (catalogue != noCatalogue()) break;
  }
  return catalogue;
}

class Catalogue {
 public:
  const char* look(int set, int number, const char* defaultText) {
    const std::lock_guard<std::mutex> hold(mutex_);
    openIfAsked();
    if (set < 0 || set >= kSets || number < 1 || descriptor_ == noCatalogue()) return defaultText;
    const auto found = texts_.find({set, number});
    if (found != texts_.end()) return found->second.c_str();
    if (!std::getenv("LANG")) return defaultText;
    const char* const text = catgets(descriptor_, set, number, defaultText);
    if (!text) return defaultText;
    // A map leaves its texts where they are, so that callers may keep the pointers.
    return texts_.emplace(std::pair(set, number), text).first->second.c_str();
  }

  nl_catd descriptor() {
    const std::lock_guard<std::mutex> hold(mutex_);
    return descriptor_;
  }

 private:
  void openIfAsked() {
    const int state = state_.load();
    if (state == 0) return;
    if (state == kTvMsgReopen && descriptor_ != noCatalogue()) catclose(descriptor_);
    if (state == kFirstUse) ____msg_register_first(&state_);
    // Before the opening: what asks for another one meanwhile is not lost.
    state_.store(0);
    descriptor_ = openCatalogue();
  }

  std::mutex mutex_;
  TvMsgState state_{kFirstUse};
  nl_catd descriptor_ = noCatalogue();
  std::map<std::pair<int, int>, std::string> texts_;
};

Catalogue& catalogue() {
  static auto& one = *new Catalogue();
  return one;
}

}  // namespace

const char* _zorb_topoMsg(int set, int number, const char* defaultText) {
  const ErrnoKeeper errnoOfCaller;
  try {
    return catalogue().look(set, number, defaultText);
  } catch (const std::bad_alloc&) {
    return defaultText;
  }
}

nl_catd ___zorb_topoMsg_fd__() { return catalogue().descriptor(); }

void reopenMessageCatalogue() { tvReopenMessageCatalogues(); }

}  // namespace zntopo
