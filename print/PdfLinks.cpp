#include "print/PdfLinks.h"

#include <qpdf/QPDFPageDocumentHelper.hh>

namespace designspec {

namespace {

using Object = QPDFObjectHandle;

class LinkMaker {
public:
    explicit LinkMaker(QPDF& pdf) : m_pdf(pdf), m_pages(QPDFPageDocumentHelper(pdf).getAllPages())
    {
    }

    void AddLinks(const PaperTarget& target)
    {
        for (const PaperLink& link : target.links) {
            const double height = Height(link.sheet);
            Object one = Object::newDictionary();
            one.replaceKey("/Type", Object::newName("/Annot"));
            one.replaceKey("/Subtype", Object::newName("/Link"));
            one.replaceKey("/Rect",
                           Object::newFromRectangle(
                               {Points(link.place.left()), height - Points(link.place.bottom()),
                                Points(link.place.right()), height - Points(link.place.top())}));
            one.replaceKey("/Border", Object::parse("[0 0 0]"));
            one.replaceKey("/Dest", Destination(target));
            Object page = Page(link.sheet);
            if (!page.hasKey("/Annots")) page.replaceKey("/Annots", Object::newArray());
            page.getKey("/Annots").appendItem(m_pdf.makeIndirectObject(one));
        }
    }

    // Those of a specification are closed at first.
    void AddOutline(const std::vector<PaperTarget>& targets)
    {
        Object root = m_pdf.makeIndirectObject(Object::newDictionary());
        root.replaceKey("/Type", Object::newName("/Outlines"));
        Object chapter = root;
        for (const PaperTarget& target : targets) {
            Object item = m_pdf.makeIndirectObject(Object::newDictionary());
            item.replaceKey("/Title", Object::newUnicodeString(target.title.toStdString()));
            item.replaceKey("/Dest", Destination(target));
            if (target.level == 0) {
                Append(root, item, 1);
                chapter = item;
            } else {
                Append(chapter, item, -1);
            }
        }
        m_pdf.getRoot().replaceKey("/Outlines", root);
    }

private:
    static double Points(double units) { return units / kUnitsPerPoint; }
    Object Page(int sheet) { return m_pages.at(static_cast<std::size_t>(sheet)).getObjectHandle(); }
    double Height(int sheet)
    {
        return Page(sheet).getKey("/MediaBox").getArrayItem(3).getNumericValue();
    }
    Object Destination(const PaperTarget& target)
    {
        return Object::newArray({Page(target.sheet), Object::newName("/XYZ"), Object::newNull(),
                                 Object::newReal(Height(target.sheet) - Points(target.top)),
                                 Object::newNull()});
    }
    // `count` is added to what a viewer counts below the parent: negative while that is closed.
    static void Append(Object parent, Object item, int count)
    {
        item.replaceKey("/Parent", parent);
        if (parent.hasKey("/Last")) {
            Object last = parent.getKey("/Last");
            last.replaceKey("/Next", item);
            item.replaceKey("/Prev", last);
        } else {
            parent.replaceKey("/First", item);
        }
        parent.replaceKey("/Last", item);
        const auto before = parent.hasKey("/Count") ? parent.getKey("/Count").getIntValue() : 0;
        parent.replaceKey("/Count", Object::newInteger(before + count));
    }

    QPDF& m_pdf;
    std::vector<QPDFPageObjectHelper> m_pages;
};

} // namespace

void AddLinks(QPDF& pdf, const std::vector<PaperTarget>& targets)
{
    LinkMaker maker(pdf);
    for (const PaperTarget& target : targets)
        maker.AddLinks(target);
    maker.AddOutline(targets);
}

} // namespace designspec
