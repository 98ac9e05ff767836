/// The XML classes that the module exports, through its import library: nothing of tinyxml2 is linked here.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "module/InModule.h"
#include "tinyxml2.h"

namespace {

using namespace tinyxml2;

constexpr const char* kPrinters =
    "<?xml version=\"1.0\"?>\n"
    "<!--all of them-->\n"
    "<!DOCTYPE printers>\n"
    "<printers count=\"2\">\n"
    "    <printer uid=\"usb\" ready=\"true\" fill=\"0.5\">Desk &amp; chair</printer>\n"
    "    <printer uid=\"net\"><![CDATA[a < b]]></printer>\n"
    "</printers>\n";

std::string printed(const XMLNode& node) {
  XMLPrinter printer;
  node.Accept(&printer);
  EXPECT_EQ(static_cast<std::size_t>(printer.CStrSize()), std::string(printer.CStr()).size() + 1);
  return printer.CStr();
}

class ExportedXml : public testing::Test {
 protected:
  void parse(const char* text) { ASSERT_EQ(document.Parse(text), XML_SUCCESS) << document.ErrorStr(); }

  XMLDocument document;
};

TEST_F(ExportedXml, IsTheModulesOwn) {
  const void* const* const object = reinterpret_cast<const void* const*>(&document);
  EXPECT_TRUE(isInModule(*object)) << "the virtual table";
  EXPECT_TRUE(isInModule(XMLDocument::ErrorIDToName(XML_SUCCESS))) << "a text";
}

TEST_F(ExportedXml, ParsesEveryKindOfNode) {
  parse(kPrinters);

  const XMLNode* node = document.FirstChild();
  ASSERT_NE(node->ToDeclaration(), nullptr);
  EXPECT_STREQ(node->Value(), "xml version=\"1.0\"");
  node = node->NextSibling();
  ASSERT_NE(node->ToComment(), nullptr);
  EXPECT_STREQ(node->Value(), "all of them");
  node = node->NextSibling();
  ASSERT_NE(node->ToUnknown(), nullptr);
  EXPECT_STREQ(node->Value(), "DOCTYPE printers");
  node = node->NextSibling();
  ASSERT_NE(node->ToElement(), nullptr);
  EXPECT_EQ(node->GetLineNum(), 4);
  EXPECT_EQ(node->NextSibling(), nullptr);
  const XMLText* const text = document.RootElement()->LastChildElement("printer")->FirstChild()->ToText();
  ASSERT_NE(text, nullptr);
  EXPECT_TRUE(text->CData());
  EXPECT_STREQ(text->Value(), "a < b");
}

TEST_F(ExportedXml, ReadsAttributesOfEveryType) {
  parse("<a text=\"t\" int=\"-7\" large=\"-5000000000\" huge=\"18000000000000000000\" truth=\"true\" part=\"0.5\"/>");
  const XMLElement* const element = document.RootElement();
  EXPECT_STREQ(element->Attribute("text"), "t");
  EXPECT_STREQ(element->Attribute("text", "t"), "t");
  EXPECT_EQ(element->Attribute("none"), nullptr);
  EXPECT_EQ(element->IntAttribute("int"), -7);
  EXPECT_EQ(element->UnsignedAttribute("none", 3), 3U);
  EXPECT_EQ(element->Int64Attribute("large"), -5000000000);
  EXPECT_EQ(element->Unsigned64Attribute("huge"), 18000000000000000000U);
  EXPECT_TRUE(element->BoolAttribute("truth"));
  EXPECT_EQ(element->DoubleAttribute("part"), 0.5);
  EXPECT_EQ(element->FloatAttribute("part"), 0.5F);
  int number = 0;
  EXPECT_EQ(element->QueryIntAttribute("text", &number), XML_WRONG_ATTRIBUTE_TYPE);
  EXPECT_EQ(element->QueryIntAttribute("none", &number), XML_NO_ATTRIBUTE);
}

TEST_F(ExportedXml, WalksTheAttributes) {
  parse("<a one=\"1\" two=\"2\"/>");
  const XMLAttribute* attribute = document.RootElement()->FirstAttribute();
  EXPECT_STREQ(attribute->Name(), "one");
  EXPECT_STREQ(attribute->Value(), "1");
  attribute = attribute->Next();
  EXPECT_STREQ(attribute->Name(), "two");
  EXPECT_EQ(attribute->IntValue(), 2);
  EXPECT_EQ(attribute->GetLineNum(), 1);
  EXPECT_EQ(attribute->Next(), nullptr);
  EXPECT_EQ(document.RootElement()->FindAttribute("two"), attribute);
}

TEST_F(ExportedXml, BuildsAndPrintsWhatItParsed) {
  document.InsertEndChild(document.NewDeclaration("xml version=\"1.0\""));
  document.InsertEndChild(document.NewComment("all of them"));
  document.InsertEndChild(document.NewUnknown("DOCTYPE printers"));
  XMLElement* const printers = document.NewElement("printers");
  document.InsertEndChild(printers);
  printers->SetAttribute("count", 2);
  XMLElement* const usb = printers->InsertNewChildElement("printer");
  usb->SetAttribute("uid", "usb");
  usb->SetAttribute("ready", true);
  usb->SetAttribute("fill", 0.5);
  usb->SetText("Desk & chair");
  XMLElement* const net = document.NewElement("printer");
  printers->InsertAfterChild(usb, net);
  net->SetAttribute("uid", "net");
  XMLText* const text = document.NewText("a < b");
  text->SetCData(true);
  net->LinkEndChild(text);

  EXPECT_EQ(printed(document), kPrinters);
  XMLDocument reread;
  ASSERT_EQ(reread.Parse(kPrinters), XML_SUCCESS);
  EXPECT_EQ(printed(reread), kPrinters);
}

TEST_F(ExportedXml, InsertsEveryKindOfNodeIntoAnElement) {
  XMLElement* const element = document.NewElement("a");
  document.InsertFirstChild(element);
  element->InsertNewComment("c");
  element->InsertNewText("t");
  element->InsertNewDeclaration("d");
  element->InsertNewUnknown("u");
  XMLPrinter compact(nullptr, true);
  document.Print(&compact);
  EXPECT_STREQ(compact.CStr(), "<a><!--c-->t<?d?><!u></a>");
}

TEST_F(ExportedXml, ModifiesWhatItParsed) {
  parse("<a one=\"1\" two=\"2\"><b/><c>old</c></a>");
  XMLElement* const element = document.RootElement();
  element->SetName("renamed");
  element->DeleteAttribute("one");
  element->SetAttribute("two", 5000000000);
  element->DeleteChild(element->FirstChildElement("b"));
  element->FirstChildElement("c")->SetText(7U);
  EXPECT_EQ(printed(document), "<renamed two=\"5000000000\">\n    <c>7</c>\n</renamed>\n");
  element->DeleteChildren();
  EXPECT_TRUE(element->NoChildren());
  document.DeleteNode(element);
  EXPECT_EQ(document.RootElement(), nullptr);
}

TEST_F(ExportedXml, ReadsTextsOfEveryType) {
  parse("<a><b>true</b><b>-1</b><b>0.5</b><b>x</b><b/></a>");
  const XMLElement* element = document.RootElement()->FirstChildElement();
  EXPECT_TRUE(element->BoolText());
  element = element->NextSiblingElement("b");
  EXPECT_EQ(element->IntText(), -1);
  EXPECT_EQ(element->Int64Text(), -1);
  element = element->NextSiblingElement();
  EXPECT_EQ(element->DoubleText(), 0.5);
  EXPECT_EQ(element->FloatText(), 0.5F);
  element = element->NextSiblingElement();
  int number = 0;
  EXPECT_STREQ(element->GetText(), "x");
  EXPECT_EQ(element->QueryIntText(&number), XML_CAN_NOT_CONVERT_TEXT);
  element = element->NextSiblingElement();
  EXPECT_EQ(element->QueryIntText(&number), XML_NO_TEXT_NODE);
  EXPECT_EQ(element->UnsignedText(9), 9U);
}

TEST_F(ExportedXml, CopiesDocumentsAndNodes) {
  parse(kPrinters);
  XMLDocument copy;
  document.DeepCopy(&copy);
  EXPECT_EQ(printed(copy), kPrinters);
  XMLNode* const root = document.RootElement()->DeepClone(&copy);
  copy.Clear();
  EXPECT_TRUE(copy.NoChildren());
  EXPECT_NE(root, nullptr);
  XMLNode* const shallow = document.RootElement()->ShallowClone(&copy);
  EXPECT_TRUE(shallow->ShallowEqual(document.RootElement()));
  copy.InsertEndChild(shallow);
  EXPECT_EQ(printed(copy), "<printers count=\"2\"/>\n");
}

TEST_F(ExportedXml, HandlesGoThroughNothing) {
  parse(kPrinters);
  XMLHandle handle(document);
  EXPECT_STREQ(handle.FirstChildElement("printers").FirstChildElement().ToElement()->Attribute("uid"), "usb");
  EXPECT_NE(handle.FirstChild().ToDeclaration(), nullptr);
  EXPECT_NE(handle.LastChild().PreviousSibling().ToUnknown(), nullptr);
  EXPECT_EQ(handle.FirstChildElement("none").FirstChildElement("either").NextSibling().ToNode(), nullptr);
  const XMLDocument& constant = document;
  const XMLConstHandle constHandle(constant);
  EXPECT_STREQ(constHandle.LastChildElement().LastChildElement("printer").FirstChild().ToText()->Value(), "a < b");
  EXPECT_EQ(constHandle.FirstChildElement("none").PreviousSiblingElement().ToElement(), nullptr);
}

class NodeNames : public XMLVisitor {
 public:
  bool VisitEnter(const XMLDocument& /*visited*/) override { return add("document"); }
  bool VisitExit(const XMLDocument& /*visited*/) override { return add("/document"); }
  bool VisitEnter(const XMLElement& element, const XMLAttribute* attribute) override {
    return add(std::string(element.Name()) + (attribute == nullptr ? "" : std::string(" ") + attribute->Name()));
  }
  bool VisitExit(const XMLElement& element) override { return add(std::string("/") + element.Name()); }
  bool Visit(const XMLDeclaration& /*visited*/) override { return add("declaration"); }
  bool Visit(const XMLText& text) override { return add(text.Value()); }
  bool Visit(const XMLComment& /*visited*/) override { return add("comment"); }
  bool Visit(const XMLUnknown& /*visited*/) override { return add("unknown"); }

  std::vector<std::string> seen;

 private:
  bool add(const std::string& name) {
    seen.push_back(name);
    return true;
  }
};

TEST_F(ExportedXml, AVisitorOfTheApplicationSeesEveryNode) {
  parse("<?xml?><!--c--><!u><a k=\"v\">t<b/></a>");
  NodeNames names;
  EXPECT_TRUE(document.Accept(&names));
  EXPECT_EQ(names.seen, (std::vector<std::string>{"document", "declaration", "comment", "unknown", "a k", "t", "b", "/b", "/a",
                                                  "/document"}));
}

TEST_F(ExportedXml, AVisitorThatOverridesNothingSeesAllOfIt) {
  parse(kPrinters);
  XMLVisitor plain;
  EXPECT_TRUE(document.Accept(&plain));
}

// Its own characters are in the application, those of the base in the module.
class Shouting : public XMLPrinter {
 public:
  Shouting() : XMLPrinter(nullptr, true) {}
  using XMLPrinter::Write;
  void Write(const char* data, std::size_t size) override {
    std::string loud(data, size);
    for (char& character : loud) character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    XMLPrinter::Write(loud.data(), loud.size());
  }
};

TEST_F(ExportedXml, APrinterOfTheApplicationChangesWhatIsWritten) {
  parse("<a k=\"v\">t</a>");
  Shouting printer;
  document.Print(&printer);
  EXPECT_STREQ(printer.CStr(), "<A K=\"V\">T</A>");
}

TEST_F(ExportedXml, PrintsWithoutADocument) {
  XMLPrinter printer(nullptr, true);
  printer.PushHeader(false, true);
  printer.PushComment("c");
  printer.OpenElement("a");
  printer.PushAttribute("text", "<");
  printer.PushAttribute("int", -1);
  printer.PushAttribute("unsigned", 1U);
  printer.PushAttribute("large", std::int64_t{-5000000000});
  printer.PushAttribute("huge", std::uint64_t{5000000000});
  printer.PushAttribute("truth", false);
  printer.PushAttribute("part", 0.5);
  printer.PushText("&");
  printer.PushText(1);
  printer.PushText(true);
  printer.PushText("raw", true);
  printer.PushUnknown("u");
  printer.CloseElement();
  EXPECT_STREQ(printer.CStr(),
               "<?xml version=\"1.0\"?><!--c--><a text=\"&lt;\" int=\"-1\" unsigned=\"1\" "
               "large=\"-5000000000\" huge=\"5000000000\" truth=\"false\" part=\"0.5\">&amp;1true<![CDATA[raw]]><!u></a>\n");
  printer.ClearBuffer();
  EXPECT_STREQ(printer.CStr(), "");
}

TEST_F(ExportedXml, NamesWhatIsWrongAndWhere) {
  EXPECT_EQ(document.Parse("<a>\n<b>\n</a>"), XML_ERROR_MISMATCHED_ELEMENT);
  EXPECT_TRUE(document.Error());
  EXPECT_EQ(document.ErrorID(), XML_ERROR_MISMATCHED_ELEMENT);
  EXPECT_STREQ(document.ErrorName(), "XML_ERROR_MISMATCHED_ELEMENT");
  EXPECT_EQ(document.ErrorLineNum(), 2);
  EXPECT_NE(std::string(document.ErrorStr()).find("XMLElement name=b"), std::string::npos) << document.ErrorStr();
  document.ClearError();
  EXPECT_FALSE(document.Error());
  EXPECT_EQ(document.Parse(""), XML_ERROR_EMPTY_DOCUMENT);
  EXPECT_EQ(document.Parse("<a b=c/>"), XML_ERROR_PARSING_ATTRIBUTE);
  EXPECT_STREQ(XMLDocument::ErrorIDToName(XML_NO_ATTRIBUTE), "XML_NO_ATTRIBUTE");
}

TEST_F(ExportedXml, RefusesWhatIsNestedTooDeep) {
  std::string deep;
  for (int depth = 0; depth <= TINYXML2_MAX_ELEMENT_DEPTH; ++depth) deep += "<a>";
  EXPECT_EQ(document.Parse(deep.c_str()), XML_ELEMENT_DEPTH_EXCEEDED);
}

TEST_F(ExportedXml, SavesToAFileAndLoadsIt) {
  const std::string file = (std::filesystem::temp_directory_path() / "exported_xml_test.xml").string();
  parse(kPrinters);
  ASSERT_EQ(document.SaveFile(file.c_str()), XML_SUCCESS);
  XMLDocument loaded;
  EXPECT_EQ(loaded.LoadFile(file.c_str()), XML_SUCCESS) << loaded.ErrorStr();
  EXPECT_EQ(printed(loaded), kPrinters);
  std::filesystem::remove(file);
  EXPECT_EQ(loaded.LoadFile(file.c_str()), XML_ERROR_FILE_NOT_FOUND);
}

TEST_F(ExportedXml, HasItsHelpers) {
  char text[32];
  XMLUtil::ToStr(5000000000, text, sizeof text);
  EXPECT_STREQ(text, "5000000000");
  bool truth = false;
  EXPECT_TRUE(XMLUtil::ToBool("true", &truth));
  EXPECT_TRUE(truth);
  XMLUtil::SetBoolSerialization("yes", "no");
  XMLUtil::ToStr(true, text, sizeof text);
  EXPECT_STREQ(text, "yes");
  XMLUtil::SetBoolSerialization(nullptr, nullptr);
  XMLUtil::ToStr(true, text, sizeof text);
  EXPECT_STREQ(text, "true");
}

TEST_F(ExportedXml, HasOneTypeInformation) {
  parse("<a>t</a>");
  const XMLNode* const node = document.RootElement();
  EXPECT_NE(dynamic_cast<const XMLElement*>(node), nullptr);
  EXPECT_EQ(dynamic_cast<const XMLText*>(node), nullptr);
  EXPECT_EQ(typeid(*node), typeid(XMLElement));
}

}  // namespace
