#pragma once

#include <string>
#include <xalanc/Include/PlatformDefinitions.hpp>

namespace XALAN_CPP_NAMESPACE {
class XSLTInputSource;
}

namespace zntopo::detail {

/// Applies a stylesheet. The name of the folder ends with a slash. Nothing else is read but regular
/// XML files in a folder, links followed; a stylesheet that names another fails. What the libraries
/// throw passes to the caller.
/// @return 0 for success, with the text; otherwise the error
int applyStylesheet(const xalanc::XSLTInputSource& xml, const xalanc::XSLTInputSource& stylesheet,
                    const std::string& folder, std::string& text, std::string& error);

}  // namespace zntopo::detail
