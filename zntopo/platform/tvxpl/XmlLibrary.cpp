#include "zntopo/platform/tvxpl/XmlLibrary.h"

#include <mutex>
#include <stdexcept>
#include <string>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "zntopo/platform/tvxpl/TvXplMsg.h"

namespace TvXplXml {

namespace {

namespace xml = xercesc;

class ThrowingPanicHandler : public xml::PanicHandler {
 public:
  void panic(const PanicReasons reason) override {
    throw std::runtime_error(getPanicReasonString(reason));
  }
};

[[noreturn]] void fail(const std::string& why) {
  TvXplMsg::MessageList_t messages;
  messages.Add(TvXplMsg::CreateError_t("The XML library can't be started: " + why));
  throw TvXplMsg::Exception_t(messages);
}

// Never destroyed: the last user may go while the process ends.
std::mutex& libraryMutex() {
  static auto* const mutex = new std::mutex;
  return *mutex;
}

}  // namespace

void startXmlLibrary() {
  static auto* const panicHandler = new ThrowingPanicHandler;
  // The library counts a start before it does anything, and would take the next one for done.
  static bool isBroken = false;
  const std::lock_guard lock(libraryMutex());
  if (isBroken) fail("an earlier start in this process failed");
  isBroken = true;
  try {
    xml::XMLPlatformUtils::Initialize(xml::XMLUni::fgXercescDefaultLocale, nullptr, panicHandler);
  } catch (const xml::XMLException&) {
    fail("its initialisation failed");
  } catch (const std::exception& error) {
    fail(error.what());
  } catch (...) {
    fail("there is not enough memory");
  }
  isBroken = false;
}

void stopXmlLibrary() {
  const std::lock_guard lock(libraryMutex());
  xml::XMLPlatformUtils::Terminate();
}

std::unique_ptr<xml::SAX2XMLReader> makeXmlReader(xml::DefaultHandler& listener) {
  std::unique_ptr<xml::SAX2XMLReader> reader(xml::XMLReaderFactory::createXMLReader());
  reader->setFeature(xml::XMLUni::fgSAX2CoreNameSpaces, true);
  reader->setFeature(xml::XMLUni::fgSAX2CoreValidation, false);
  reader->setFeature(xml::XMLUni::fgXercesSchema, false);
  reader->setFeature(xml::XMLUni::fgXercesLoadSchema, false);
  reader->setFeature(xml::XMLUni::fgXercesLoadExternalDTD, false);
  reader->setFeature(xml::XMLUni::fgXercesDisableDefaultEntityResolution, true);
  reader->setContentHandler(&listener);
  reader->setLexicalHandler(&listener);
  reader->setEntityResolver(&listener);
  reader->setErrorHandler(&listener);
  return reader;
}

}  // namespace TvXplXml
