#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <xalanc/Include/PlatformDefinitions.hpp>

#include "zntopo/filter/detail/XmlDocument.h"

namespace XALAN_CPP_NAMESPACE {
class XSLTInputSource;
}

namespace zntopo::detail {

/// What a stylesheet may read beside its document.
struct StylesheetFiles {
  /// Regular XML files in it, links followed. Its name ends with a slash.
  const std::string& folder;
  /// Those of them that were read already, by their paths.
  const std::map<std::string, std::shared_ptr<XmlDocument>>& known;
  /// What is wrong with a file of hosts that is not known; empty if nothing is.
  std::function<std::string(const std::string& name, XmlDocument& file)> complaintAbout;
};

/// Applies a stylesheet; one that names another file fails. What the libraries throw passes to the
/// caller.
/// @return 0 for success, with the text; otherwise the error
int applyStylesheet(const xalanc::XSLTInputSource& xml, const xalanc::XSLTInputSource& stylesheet,
                    const StylesheetFiles& files, std::string& text, std::string& error);

}  // namespace zntopo::detail
