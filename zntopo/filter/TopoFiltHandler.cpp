#include "zntopo/filter/TopoFiltHandler.h"

#include "zntopo/core/Trace.h"
#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/filter/XMLUtil.h"
#include "zntopo/filter/detail/FilterTrace.h"
#include "zntopo/filter/detail/XmlDocument.h"
#include "zntopo/platform/tv/BuildPath.h"
#include "zntopo/platform/tvxpl/TvXplLog.h"

namespace zntopo {

namespace {

using TvXplMsg::MessageList_t;

constexpr const char* kUserSchema = "TopoFilter.xsd";
constexpr const char* kStylesheet = "Filter2IFilter.xsl";
constexpr const char* kDefaultFile = "qrmrz/topology/filter/TopoFilters.xml";

int fail(MessageList_t& list, ZNTopoStatus status, const std::string& text) {
  list.Add(TvXplMsg::CreateError_t(text));
  detail::traceFilter(detail::kTraceFailure, [&] { return text; });
  return status;
}

}  // namespace

/// A document, and how messages speak of it.
struct TopoFiltHandler::Input {
  detail::XmlDocument document;
  const std::string& called;
  const char* traced;
  const char* noun;
  const char* validationError;
};

TopoFiltHandler::~TopoFiltHandler() { cleanup(); }

void TopoFiltHandler::cleanup() {
  static constexpr detail::TracedBlock kBlock("TopoFiltHandler::cleanup");
  const TvXplTrc::BlockTrace_t trace(topoSvcProcObj, kBlock.name, detail::kTraceStep, kBlock.file,
                                     kBlock.line);
}

int TopoFiltHandler::ParseDefaultFile(MessageList_t& list) {
  return ParseXmlFile(list, _TVBuildPath("%TV_ETC_PATH%\\conf", kDefaultFile));
}

int TopoFiltHandler::ParseXmlFile(MessageList_t& list, const std::string& fileName) {
  return parse(list, {detail::XmlDocument::ofFile(fileName), fileName, "Parsing file ", "XML file",
                      "XML filter validation Error."});
}

int TopoFiltHandler::ParseXmlString(MessageList_t& list, const std::string& xml) {
  return parse(list,
               {XMLUtil::documentOf(xml), xml, "Parsing: ", "XML", "XML filter validation error."});
}

int TopoFiltHandler::parse(MessageList_t& list, Input&& input) {
  bool isStarted = false;
  std::string error;
  XMLUtil xml(isStarted, error);
  if (!isStarted) {
    list.Add(TvXplMsg::CreateError_t("Failed to initialize XMLUtil.\n" + error));
    detail::traceFilter(detail::kTraceStart, [] { return "Failed to initialize XMLUtil."; });
    return ZN_API_XML_SUBSYSTEM_INIT_FAILURE;
  }
  detail::traceFilter(detail::kTraceStep, [&] { return input.traced + input.called; });
  const std::string schemaLocation =
      xml.getTopologyXMLNamespace() + " " + xml.getTopologyXMLConfigURI() + kUserSchema;
  if (!xml.validate(input.document, schemaLocation.c_str(), error, true)) {
    return fail(list, ZN_API_XML_FILTER_VALIDATION_ERROR,
                std::string(input.noun) + " being validated:\n" + input.called + "\n" +
                    input.validationError + "\n" + error);
  }
  detail::traceFilter(detail::kTraceStep, [] { return "About to transform"; });
  auto stylesheet = detail::XmlDocument::ofFile(xml.getTopologyXMLConfigPath() + kStylesheet);
  std::string intermediate;
  if (xml.transform(input.document, stylesheet, intermediate, error) != 0) {
    return fail(list, ZN_API_XML_FILTER_TRANSFORMATION_ERROR,
                std::string(input.noun) + " being transformed:\n" + input.called +
                    "\nXML filter transformation error.\n" + error);
  }
  detail::traceFilter(detail::kTraceStep, [&] { return "Intermediate XML form:" + intermediate; });
  if (const int status = read(list, intermediate); status != ZN_API_SUCCESS) return status;
  return SubstituteStringFiltMap(list, "#");
}

int TopoFiltHandler::read(MessageList_t& list, const std::string& intermediate) {
  const auto complain = [&](const std::string& kind) {
    list.Add(
        TvXplMsg::CreateError_t(kind + " exception when parsing xml [\n" + intermediate + "\n]"));
  };
  try {
    TvXplXml::SAXParser_t parser;
    parser.SetContentHandler(this);
    m_StateStack.push(m_Context);
    TvXplIo::CharArrayInputStream_t stream(intermediate.data(), intermediate.size());
    parser.Parse(TvXplXml::SAX::InputSource_t(stream));
    return ZN_API_SUCCESS;
  } catch (const TvXplMsg::Exception_t& exception) {
    TvXplLog::Log(exception.GetMessages());
    std::string text = exception.GetMessages().Format(TvXplMsg::fNone_k);
    if (!text.empty()) text.pop_back();  // the end of the last line
    fail(list, ZN_API_XML_PARSE_ERROR, text);
    complain("TvXplMsg");
  } catch (...) {
    complain("Unknown");
  }
  return ZN_API_XML_PARSE_ERROR;
}

std::map<std::string, std::pair<EntityType, std::string>> TopoFiltHandler::getFilterNameDesc()
    const {
  // Every name has the same value; who needs the type asks getFilterObjType().
  std::map<std::string, std::pair<EntityType, std::string>> result;
  for (const auto& [name, filter] : m_FiltMap) result.emplace(name, std::pair(E_Node, ""));
  return result;
}

int TopoFiltHandler::getFilterObjType(const std::string& name, EntityType& type) const {
  const auto found = m_FiltMap.find(name);
  if (found == m_FiltMap.end()) return 1;
  type = found->second.getObjType();
  return 0;
}

}  // namespace zntopo
