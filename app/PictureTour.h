// Goes through the editor's windows with one specification and shows each for a picture.
#pragma once

#include <set>

#include "app/DSMainDialog.h"
#include "platform/mfc/ModalVisit.h"
#include "platform/vmrd/VMRDPrj/StyleEditor.h"

class CPictureTour {
public:
    using Picture = CStyleEditor::Picture;

    // The picture's name for a page is group and label, with "-" between; what a page opens is
    // named by its title.
    CPictureTour(const CString& name, const Picture& picture);

    // The pages with their menus and input dialogs, each kind once; the message about a name; the
    // first page in view mode; the notice that a name is taken. Nothing is stored.
    void Run();

private:
    void ShowPages();
    void ShowMenus();
    void ShowMenu(CXTPReportControl* grid);
    void ShowInputDialogs(CXTPReportControl* grid, const CStringArray& items);
    void ShowSource();
    void ShowMessage();
    void ShowViewMode();
    void ShowNameWait();

    // Pictures the window unless there is one of that name.
    void Show(QWidget* window, const CString& name);
    ModalVisit ShowByTitle();

    CString m_name;
    const Picture& m_picture;
    CDSMainDialog m_dialog;
    CString m_page;           // the name of the page shown now
    std::set<CString> m_seen; // names of pictures, and items of menus
};
