#include "host/writers/dot/dot_writer.h"

#include <unordered_map>

#include "host/metamodel/casting.h"
#include "host/writers/common/named_model.h"
#include "host/writers/common/relationships.h"

namespace {

constexpr std::string_view kDefaults = R"(  rankdir=LR; nodesep=0.35; ranksep=0.9; pad=0.2;
  fontname="Helvetica"; fontsize=14; labelloc=t;
  node [shape=plain, fontname="Helvetica", fontsize=10];
  edge [dir=both, fontname="Helvetica", fontsize=9, color="#5b6573", fontcolor="#5b6573"];
)";

// How a kind of boxes looks.
struct BoxStyle {
  std::string_view border;
  std::string_view head;
  std::string_view style;  // further attributes of the box
};
constexpr BoxStyle kTableStyle = {.border = "#5b6573", .head = "#d6e4f2", .style = ""};
constexpr BoxStyle kViewStyle = {.border = "#9aa5b1", .head = "#f3ecd2", .style = R"( STYLE="ROUNDED")"};

// The end of an edge; what is nearest to the box comes first.
std::string_view getArrow(const EndCount& count) {
  return count.isMany ? (count.isOptional ? "crowodot" : "crowtee")
                      : (count.isOptional ? "teeodot" : "teetee");
}

class DotWriter {
 public:
  DotWriter(const VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file)
      : model_(model, format), diagram_(makeDiagram(model_.elements)), out_(file) {
    number(model_.elements.tables, 't');
    number(model_.elements.views, 'v');
    number(diagram_.hubs, 'r');
  }

  void write() {
    out_.add("digraph model {\n", kDefaults);
    if (const std::string title = model_.line(model_.model.getName()); !title.empty()) {
      out_.add("  label=<<B>");
      putText(title);
      out_.add("</B>>;\n");
    }
    writeBoxes();
    for (const VornRelationship* hub : diagram_.hubs) {
      writeHub(*hub);
    }
    for (const DiagramEdge& edge : diagram_.edges) {
      writeEdge(edge);
    }
    for (const VornSQLViewEntity* view : model_.elements.views) {
      for (const VornClassifier* source : view->sourceElementCollection) {
        out_.add("  ", ids_.at(source), " -> ", ids_.at(view));
        out_.add(" [style=dashed, dir=back, arrowtail=vee, color=\"", kViewStyle.border, "\"];\n");
      }
    }
    out_.add("}\n");
  }

  const NamedModel& getModel() const { return model_; }

 private:
  template <class Elements>
  void number(const Elements& elements, char kind) {
    std::size_t last = 0;
    for (const auto* element : elements) {
      ids_[element] = kind + std::to_string(++last);
    }
  }

  // The boxes of each schema together, those of none at the end.
  void writeBoxes() {
    std::unordered_map<const VornDataPackage*, std::vector<const VornClassifier*>> groups;
    for (const VornClass* table : model_.elements.tables) {
      groups[getSchema(*table)].push_back(table);
    }
    for (const VornSQLViewEntity* view : model_.elements.views) {
      groups[getSchema(*view)].push_back(view);
    }
    std::size_t frame = 0;
    for (const VornDataPackage* schema : model_.elements.schemas) {
      const auto group = groups.find(schema);
      if (group == groups.end()) {
        continue;
      }
      if (groups.size() > 1) {
        out_.add("  subgraph cluster_", ++frame, " {\n  color=\"#c3cbd4\"; fontsize=12; label=<");
        putText(model_.names.get(*schema));
        out_.add(">;\n");
      }
      writeGroup(group->second);
      out_.add(groups.size() > 1 ? "  }\n" : "");
    }
    writeGroup(groups[nullptr]);
  }

  void writeGroup(const std::vector<const VornClassifier*>& group) {
    for (const VornClassifier* element : group) {
      if (element->getElementType() == VornElementType::classType) {
        writeTable(cast<VornClass>(*element));
      } else {
        writeView(cast<VornSQLViewEntity>(*element));
      }
    }
  }

  void writeTable(const VornClass& table) {
    const KeyMarks marks(table);
    openBox(table, kTableStyle);
    for (const VornAttribute* column : getColumns(table)) {
      out_.add(R"(<TR><TD ALIGN="LEFT">)", marks.get(*column), " ");
      out_.add(R"(</TD><TD ALIGN="LEFT">)", column->optional ? "" : "<B>");
      putText(model_.names.get(*column));
      out_.add(column->optional ? "" : "</B>", R"( </TD><TD ALIGN="LEFT"><FONT COLOR="#5b6573">)");
      putText(model_.typeOf(*column));
      out_.add("</FONT></TD></TR>\n");
    }
    closeBox();
  }

  void writeView(const VornSQLViewEntity& view) {
    openBox(view, kViewStyle);
    for (const VornFeature* column : view.featureCollection) {
      out_.add(R"(<TR><TD ALIGN="LEFT" COLSPAN="3">)");
      putText(model_.lineOfName(*column));
      out_.add(" </TD></TR>\n");
    }
    closeBox();
  }

  void openBox(const VornModelElement& element, const BoxStyle& style) {
    out_.add("  ", ids_.at(&element), R"( [label=<<TABLE BORDER="1" CELLBORDER="0" CELLSPACING="0")");
    out_.add(R"( CELLPADDING="2" BGCOLOR="white" COLOR=")", style.border, '"', style.style, ">\n");
    out_.add(R"(<TR><TD COLSPAN="3" CELLPADDING="4" BGCOLOR=")", style.head, R"("><B>)");
    putText(model_.names.get(element));
    out_.add("</B></TD></TR>\n");
  }
  void closeBox() { out_.add("</TABLE>>];\n"); }

  void writeHub(const VornRelationship& hub) {
    const bool isInheritance = hub.getElementType() == VornElementType::generalization;
    out_.add("  ", ids_.at(&hub), isInheritance ? " [shape=ellipse, label=<" : " [shape=diamond, label=<");
    putText(model_.lineOfName(hub));
    out_.add(" >];\n");
  }

  void writeEdge(const DiagramEdge& edge) {
    out_.add("  ", ids_.at(edge.from), " -> ", ids_.at(edge.to));
    if (edge.kind == DiagramEdge::Kind::inheritance) {
      out_.add(" [dir=back, arrowtail=onormal, arrowsize=1.2];\n");
      return;
    }
    const bool isOfHub = edge.from->getElementType() == VornElementType::association;
    out_.add(" [arrowtail=", isOfHub ? "none" : getArrow(edge.atFrom), ", arrowhead=", getArrow(edge.atTo));
    if (const std::string label = model_.line(getLabel(edge, model_.logical)); !label.empty()) {
      out_.add(", label=<");
      putText(label);
      out_.add(">");
    }
    out_.add("];\n");
  }

  // One-line text inside an HTML-like label. A ']' that stands last would be taken for the beginning of
  // "]]>".
  void putText(std::string_view text) {
    for (std::size_t start = 0;;) {
      const std::size_t end = std::min(text.find_first_of("&<>]\"\\", start), text.size());
      out_.add(text.substr(start, end - start));
      if (end == text.size()) {
        return;
      }
      if (text[end] == '\\') {
        out_.add("\\\\");  // else "\\N" would become the box's id
      } else {
        out_.add("&#", static_cast<int>(text[end]), ";");
      }
      start = end + 1;
    }
  }

  NamedModel model_;
  Diagram diagram_;
  TextOutput out_;
  std::unordered_map<const VornModelElement*, std::string> ids_;
};

}  // namespace

void writeModelAsDot(VornStoreModel& model, const VornOutputFormat& format, VornOutputFile& file,
                     VornLog& log) {
  DotWriter writer(model, format, file);
  writer.write();
  writer.getModel().tellOf(log);
}
