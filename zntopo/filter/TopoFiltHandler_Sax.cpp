// How the intermediate form of filters is read.

#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/TrimUnneededWhiteSpace.h"
#include "zntopo/filter/detail/FilterTrace.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"

namespace zntopo {

namespace {

using TvXplStr::narrowed;
using TvXplXml::SAX::Attributes_i;

/// The value of an attribute, empty if the element has none.
std::string valueOf(const Attributes_i& attributes, const char16_t* name) {
  return narrowed(attributes.GetValue(name));
}

std::string tracedElement(const char16_t* name, const Attributes_i& attributes) {
  std::string text = "StartElement " + narrowed(name);
  for (int i = 0; i < attributes.GetLength(); ++i) {
    text +=
        " " + narrowed(attributes.GetQName(i)) + "=\"" + narrowed(attributes.GetValue(i)) + "\"";
  }
  return text;
}

}  // namespace

void TopoFiltHandler::StartElement(const char16_t* /*uri*/, const char16_t* /*localName*/,
                                   const char16_t* qName, const Attributes_i& attributes) {
  struct Step {
    Context from;
    const char* element;
    Context to;
  };
  static constexpr Step kSteps[] = {
      {Unset, "iFilters", Filters},
      {Unset, "Document", Document},
      {Document, "iFilters", Filters},
      {Filters, "iFilter", Filter},
      {Filters, "iAssertion", Assertion},
      {Filter, "whereQueryStr", WhereQueryString},
      {Assertion, "whereQueryStr", WhereQueryString},
  };
  detail::traceFilter(detail::kTraceDetail, [&] { return tracedElement(qName, attributes); });
  for (const Step& step : kSteps) {
    if (m_Context != step.from || qName != TvXplStr::String_t(step.element)) continue;
    m_Context = step.to;
    if (m_Context == WhereQueryString) m_WhereClause.clear();
    if (m_Context == Filter || m_Context == Assertion) {
      m_objType = valueOf(attributes, u"objectType");
      m_objName = valueOf(attributes, u"name");
      // Replaces a filter of the name, whichever document defined it.
      m_FiltMap[m_objName] = TopoFilt(m_objName, m_objType, "");
    }
    break;
  }
  m_StateStack.push(m_Context);
}

void TopoFiltHandler::Characters(const char16_t* chars, int /*start*/, int /*length*/) {
  detail::traceFilter(detail::kTraceDetail, [&] { return "Characters " + narrowed(chars); });
  if (m_Context == WhereQueryString) m_WhereClause += narrowed(chars);
}

void TopoFiltHandler::EndElement(const char16_t* /*uri*/, const char16_t* /*localName*/,
                                 const char16_t* /*qName*/) {
  if (m_Context == WhereQueryString) {
    const std::string text = TrimUnneededWhiteSpace(m_WhereClause);
    TopoFilt& filter = m_FiltMap[m_objName];
    filter.setWhereQueryString(text);
    filter.setFinalWhereClause(text);
    detail::traceFilter(detail::kTraceStep,
                        [&] { return "Adding FiltMap[" + m_objName + "].Where = '" + text + "'"; });
  }
  // The entry that stands for the parse is never popped, so there is always one left. Callers of
  // their own may end an element that never began: then the context stays.
  if (!m_StateStack.empty()) m_StateStack.pop();
  if (!m_StateStack.empty()) m_Context = m_StateStack.top();
}

}  // namespace zntopo
