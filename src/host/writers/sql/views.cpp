// Views, each behind those that it reads.
#include <deque>
#include <unordered_map>
#include <unordered_set>

#include "host/metamodel/casting.h"
#include "host/writers/sql/sql_script.h"
#include "host/writers/sql/statement_reading.h"
#include "host/writers/sql/view_statements.h"

namespace {

const VornSQLViewEntity* asView(const VornClassifier* element) {
  return element->getElementType() == VornElementType::sqlViewEntity ? cast<VornSQLViewEntity>(element)
                                                                     : nullptr;
}

// The views in an order in which each comes behind those that it reads; at the end, and counted apart, those
// that read each other or read such ones.
struct ViewOrder {
  std::vector<const VornSQLViewEntity*> views;
  std::size_t inOrder = 0;

  explicit ViewOrder(const std::vector<const VornSQLViewEntity*>& all) {
    std::unordered_map<const VornSQLViewEntity*, std::size_t> waitsFor;
    std::deque<const VornSQLViewEntity*> ready;
    for (const VornSQLViewEntity* view : all) {
      std::size_t count = 0;
      for (const VornClassifier* source : view->sourceElementCollection) {
        count += static_cast<std::size_t>(asView(source) != nullptr);
      }
      waitsFor[view] = count;
      if (count == 0) {
        ready.push_back(view);
      }
    }
    for (; !ready.empty(); ready.pop_front()) {
      views.push_back(ready.front());
      for (const VornSQLViewEntity* reader : ready.front()->readingViewCollection) {
        if (--waitsFor[reader] == 0) {
          ready.push_back(reader);
        }
      }
    }
    inOrder = views.size();
    for (const VornSQLViewEntity* view : all) {
      if (waitsFor[view] > 0) {
        views.push_back(view);
      }
    }
  }
};

// Takes off the semicolon that many exports have at a statement's end.
void cutEnd(std::string& statement) {
  const auto trim = [&] { statement.erase(statement.find_last_not_of(" \n") + 1); };
  trim();
  if (statement.ends_with(';')) {
    statement.pop_back();
    trim();
  }
}

class ViewWriter {
 public:
  explicit ViewWriter(SqlScript& script) : script_(script), sources_(script) {}

  void write(const VornSQLViewEntity& view, bool isInOrder) {
    const std::vector<std::string> lines = toLines(script_.texts(view.viewStatement));
    std::string statement;
    for (const std::string& line : lines) {
      // An empty line ends a statement for some clients.
      if (line.find_first_not_of(' ') != std::string::npos) {
        statement.append(statement.empty() ? "" : "\n").append(line);
      }
    }
    cutEnd(statement);
    std::string why = findDanger(script_, statement);
    if (why.empty() && !script_.format.everyView) {
      why = findObstacle(view, statement, isInOrder);
    }
    script_.out.add('\n');
    if (!why.empty()) {
      leaveOut(view, statement, why);
      return;
    }
    written_.insert(&view);
    writeStatement(view, statement);
  }

 private:
  std::string findObstacle(const VornSQLViewEntity& view, const std::string& statement, bool isInOrder) {
    if (!isInOrder) {
      return "views that read each other cannot be made";
    }
    for (const VornClassifier* source : view.sourceElementCollection) {
      const VornSQLViewEntity* readView = asView(source);
      const bool isThere =
          readView == nullptr ? script_.whyNot(*source).empty() : written_.contains(readView);
      if (!isThere) {
        return "it reads what is left out: " + quoteForReason(script_.names.get(*source));
      }
    }
    return ::findObstacle(script_, sources_, view, statement);
  }

  void leaveOut(const VornSQLViewEntity& view, const std::string& statement, std::string_view why) {
    ++script_.viewsLeftOut;
    script_.comment("", "Left out: view " + script_.qualified(view) + ": " + std::string(why) +
                            (statement.empty() ? "." : ". Its statement:"));
    script_.comment("", statement);
  }

  void writeStatement(const VornSQLViewEntity& view, const std::string& statement) {
    useSchemaOf(view);
    if (script_.dialect.comments == CommentStyle::none) {
      script_.comment("", script_.texts(view.description));
    }
    endBatch();
    // A comment in the last line must not hide the end.
    const bool hasComment = statement.find("--") != std::string::npos;
    script_.out.add("CREATE VIEW ", script_.qualified(view), " AS\n", statement,
                    hasComment ? "\n;\n" : ";\n");
    endBatch();
    writeElementComment(script_, view, "VIEW");
  }

  // Has the names without a schema mean what the view means by them.
  void useSchemaOf(const VornSQLViewEntity& view) {
    const VornDataPackage* schema = getSchema(view);
    if (schema == nullptr || schema == used_ || script_.dialect.useSchema.empty()) {
      return;
    }
    std::string use(script_.dialect.useSchema);
    use.replace(use.find("{}"), 2, script_.identifier(*schema));
    script_.out.add(use, '\n');
    used_ = schema;
  }

  void endBatch() {
    if (!script_.dialect.batchEnd.empty()) {
      script_.out.add(script_.dialect.batchEnd, '\n');
    }
  }

  SqlScript& script_;
  SourceNames sources_;
  const VornDataPackage* used_ = nullptr;
  std::unordered_set<const VornSQLViewEntity*> written_;
};

}  // namespace

void writeViews(SqlScript& script) {
  const ViewOrder order(script.elements.views);
  ViewWriter writer(script);
  if (!script.elements.views.empty()) {
    script.section("Views");
  }
  for (std::size_t i = 0; i < order.views.size(); ++i) {
    writer.write(*order.views[i], i < order.inOrder);
  }
}
