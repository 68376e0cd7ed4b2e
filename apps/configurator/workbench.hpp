// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/insight.hpp>
#include <apps/configurator/open_documents.hpp>
#include <apps/configurator/shelf.hpp>

namespace zq::configurator {

// What stands at the right.
enum class Pane : unsigned char { value, project, code };
// What lies over the window and must be answered.
enum class Sheet : unsigned char { none, about, changedByOthers, notSaved, failure };

// What the window system does for a window.
struct WindowActions {
  std::function<void()> openWindow = nullptr;
  std::function<void()> closeWindow = nullptr;  // without asking
  std::function<void()> quit = nullptr;         // asks every window to close
};

// One window: its project, what is selected and what is asked. Interface thread only.
class Workbench : public ObservableObject, public std::enable_shared_from_this<Workbench> {
 public:
  Workbench(std::shared_ptr<Shelf> shelf, std::shared_ptr<OpenDocuments> documents,
            WindowActions actions);
  ~Workbench() override;

  const std::shared_ptr<Shelf>& shelf() const { return shelf_; }
  const WindowActions& window() const { return actions_; }
  // Null before one is open; both or none.
  std::shared_ptr<Document> document() const { return document_.get(); }
  const std::shared_ptr<Insight>& insight() const { return insight_; }

  void openProject(const Url& file);
  // One of the last; where it is gone, it leaves their list.
  void openRecent(const Url& file);
  void chooseProject();
  void newProject();
  // Asks for another file, where the project is from then on.
  void saveElsewhere();
  // Once all is saved or the user does not mind.
  void close();

  // The selection; a group that is gone counts as none.
  Published<std::optional<std::string>> groupId{this};
  Published<std::optional<std::string>> itemId{this};
  Published<std::string> query{this};
  Published<Pane> pane{this, Pane::value};
  // Grow when the name of what is selected, or the search, is to have the focus.
  Published<unsigned> renames{this, 0};
  Published<unsigned> finds{this, 0};
  void rename();
  void find();
  // Goes to the first group that is found where the selected one is not.
  void search(const std::string& text);
  Published<Sheet> sheet{this, Sheet::none};
  std::string failure;  // of that sheet, a sentence
  std::function<void()> titleChanged = nullptr;

  Binding<std::optional<std::string>> selectedGroup();
  Binding<std::optional<std::string>> selectedItem();
  GroupPtr group() const;
  std::optional<ZQUICItem> item() const;

  // Edits of what is selected, as menus, keys and buttons ask for them.
  void addGroup();
  void addItem(ZQUICRecordType type);
  void duplicateGroup(const std::string& id);
  void duplicateItem(const std::string& id);
  void removeGroup(const std::string& id);
  void removeItem(const std::string& id);
  void copyExpression();
  void copyCall();
  void copyEnvironmentObject();

 private:
  void take(const Result<std::shared_ptr<Document>>& opened);
  void noteOpen();
  void present(const std::shared_ptr<Document>& document);
  void show(std::string sentence);
  void selectGroup(const std::optional<std::string>& id);
  void documentChanged();

  const std::shared_ptr<Shelf> shelf_;
  const std::shared_ptr<OpenDocuments> documents_;
  const WindowActions actions_;
  Published<std::shared_ptr<Document>> document_{this};
  std::shared_ptr<Insight> insight_;
  Subscription changes_;
};

}  // namespace zq::configurator
