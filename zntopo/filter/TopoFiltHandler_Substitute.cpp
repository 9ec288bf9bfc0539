// How the references that filters make to one another are expanded.

#include <unordered_map>
#include <vector>

#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/detail/FilterTrace.h"
#include "zntopo/platform/tvxpl/TvXplLog.h"

namespace zntopo {

namespace {

/// A condition that still has delimiters: what stands in front of the first of them, and the rest
/// back to front, so that a reference costs what it brings, however long the condition is.
class OpenCondition {
 public:
  OpenCondition(const std::string& name, TopoFilt& filter, char delimiter)
      : name_(&name), filter_(&filter), delimiter_(delimiter) {
    const std::string& text = filter.getFinalWhereClause();
    rest_.assign(text.rbegin(), text.rend());
    settle();
  }

  const std::string& name() const { return *name_; }
  std::size_t size() const { return settled_.size() + rest_.size(); }
  bool hasReference() const { return !rest_.empty(); }
  std::string text() const { return settled_ + std::string(rest_.rbegin(), rest_.rend()); }
  void store() { filter_->setFinalWhereClause(text()); }

  /// The name between the first two delimiters; false if there is only one.
  bool reference(std::string& key) const {
    if (rest_.size() < 2) return false;
    const std::size_t close = rest_.rfind(delimiter_, rest_.size() - 2);
    if (close == std::string::npos) return false;
    key.assign(rest_.rbegin() + 1, rest_.rend() - static_cast<std::ptrdiff_t>(close) - 1);
    return true;
  }
  /// Puts a text in the place of a reference, whose name has a length.
  void replaceReference(std::size_t nameLength, const std::string& text) {
    rest_.resize(rest_.size() - nameLength - 2);
    if (text.find(delimiter_) == std::string::npos) {
      settled_ += ' ' + text + ' ';
    } else {
      rest_ += ' ';
      rest_.append(text.rbegin(), text.rend());
      rest_ += ' ';
    }
    settle();
  }

 private:
  void settle() {
    const std::size_t open = rest_.rfind(delimiter_);
    const std::size_t left = open == std::string::npos ? 0 : open + 1;
    settled_.append(rest_.rbegin(), rest_.rend() - static_cast<std::ptrdiff_t>(left));
    rest_.resize(left);
  }

  const std::string* name_;
  TopoFilt* filter_;
  char delimiter_;
  std::string settled_;
  std::string rest_;
};

int fail(TvXplMsg::MessageList_t& list, ZNTopoStatus status, const std::string& text) {
  list.Add(TvXplMsg::CreateError_t(text));
  detail::traceFilter(detail::kTraceFailure, [&] { return text; });
  TvXplLog::Log(list);
  return status;
}

/// All conditions of a map that have delimiters, in the order of their names.
class Expansion {
 public:
  Expansion(std::map<std::string, TopoFilt>& filters, char delimiter) : filters_(filters) {
    for (auto& [name, filter] : filters) {
      OpenCondition condition(name, filter, delimiter);
      if (condition.hasReference()) open_.push_back(std::move(condition));
    }
    for (OpenCondition& condition : open_) {
      openOf_.emplace(condition.name(), &condition);
      active_.push_back(&condition);
    }
  }
  /// What was expanded stays, after a failure, too.
  ~Expansion() {
    for (OpenCondition& condition : open_) condition.store();
  }
  Expansion(const Expansion&) = delete;
  Expansion& operator=(const Expansion&) = delete;

  /// Expands one reference of each condition at a time, until there are none.
  int run(TvXplMsg::MessageList_t& list) {
    while (!active_.empty()) {
      for (OpenCondition* const condition : active_) {
        if (const int status = expandOne(list, *condition); status != ZN_API_SUCCESS) return status;
      }
      std::erase_if(active_, [](const OpenCondition* one) { return !one->hasReference(); });
    }
    return ZN_API_SUCCESS;
  }

 private:
  int expandOne(TvXplMsg::MessageList_t& list, OpenCondition& condition) {
    const std::string& name = condition.name();
    std::string key;
    if (!condition.reference(key)) {
      return fail(list, ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS,
                  "Unbalanced delimiters found in filterstring substitution for [" + name + "].");
    }
    if (key == name) {
      return fail(list, ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR,
                  "Circular reference found in filter string substitution.");
    }
    // An unknown name leaves an empty filter behind, which the empty name makes a known one.
    if (filters_[key].getName() != key) {
      return fail(list, ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR,
                  "Filter key [" + key + "] not found in filter string substitution.");
    }
    const auto open = openOf_.find(key);
    const std::string text =
        open == openOf_.end() ? filters_[key].getFinalWhereClause() : open->second->text();
    if (const int status = takeIn(list, condition, key, text); status != ZN_API_SUCCESS) {
      return status;
    }
    condition.replaceReference(key.size(), text);
    return ZN_API_SUCCESS;
  }

  /// Fails for a text that would make a condition, or all of them, too large.
  int takeIn(TvXplMsg::MessageList_t& list, const OpenCondition& condition, const std::string& key,
             const std::string& text) {
    if (condition.size() - key.size() + text.size() > TopoFiltHandler::kLargestCondition) {
      return fail(list, ZN_API_XML_FILTER_SUBSTITUTION_ERROR,
                  "The condition of filter [" + condition.name() + "] has more than " +
                      std::to_string(TopoFiltHandler::kLargestCondition) +
                      " bytes with its references expanded.");
    }
    expanded_ += text.size() + 2;
    if (expanded_ > TopoFiltHandler::kLargestExpansion) {
      return fail(list, ZN_API_XML_FILTER_SUBSTITUTION_ERROR,
                  "Filter string substitution stopped at filter [" + condition.name() +
                      "]: all conditions together take in more than " +
                      std::to_string(TopoFiltHandler::kLargestExpansion) + " bytes.");
    }
    return ZN_API_SUCCESS;
  }

  std::map<std::string, TopoFilt>& filters_;
  std::vector<OpenCondition> open_;
  std::vector<OpenCondition*> active_;
  std::unordered_map<std::string, OpenCondition*> openOf_;
  std::size_t expanded_ = 0;
};

}  // namespace

int TopoFiltHandler::SubstituteStringFiltMap(TvXplMsg::MessageList_t& list,
                                             const std::string& delimiter) {
  return Expansion(m_FiltMap, delimiter.empty() ? '#' : delimiter.front()).run(list);
}

}  // namespace zntopo
