#include "zntopo/model/ZNTopoXMLTag.h"

namespace zntopo {

namespace {

struct Escape {
  char character;
  const char* text;
};

// The ampersand first: the others bring new ones.
constexpr Escape kEscapes[] = {{'&', "&amp;"}, {'>', "&gt;"}, {'<', "&lt;"}};

}  // namespace

// The search begins behind the first character: readers of these texts rely on that one as it is.
void ZNTopoXMLTag::escapeXMLStr(std::string& text) {
  for (const Escape& escape : kEscapes) {
    std::size_t at = 1;
    while ((at = text.find(escape.character, at)) != std::string::npos) {
      text.replace(at, 1, escape.text);
      ++at;
    }
  }
}

std::string ZNTopoXMLTag::formXMLAttribute(const std::string& name, const std::string& type,
                                           const std::string& value) {
  // A text ends at a NUL, which XML can't hold.
  std::string escaped = value.c_str();
  escapeXMLStr(escaped);
  return "<Attr name=\"" + name + "\" type=\"" + type + "\" value=\"" + escaped + "\" /> \n";
}

std::string ZNTopoXMLTag::formL2Connection(const std::string& srcNode, const std::string& srcIF,
                                           const std::string& destNode, const std::string& destIF) {
  return "<L2Connection srcNodeID=\"" + srcNode + "\" srcIFID=\"" + srcIF + "\" destNodeID=\"" +
         destNode + "\" destIFID=\"" + destIF + "\"/>\n";
}

std::string ZNTopoXMLTag::formVlanIfInfoList(const std::list<ZNVlanIFInfo>& list) {
  std::string text = "<VlanIFInfos>\n";
  for (const ZNVlanIFInfo& info : list) {
    text += "<IFInfo IFObjID=\"" + info.getIFObjID().getStrValue() + "\" PortNo=\"" +
            info.getPortNumber() + "\" BoardNo=\"" + info.getBoardNumber() + "\" />\n";
  }
  return text + "</VlanIFInfos>\n";
}

std::string ZNTopoXMLTag::formCapaList(const std::vector<ZNCapability>& list) {
  std::string text = "<Capabilities>\n";
  for (const ZNCapability& capability : list) {
    text += "<Capability name=\"" + capability.getCapabilityName() + "\" />\n";
  }
  return text + "</Capabilities>\n";
}

}  // namespace zntopo
