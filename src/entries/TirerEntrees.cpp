#include "entries/TirerEntrees.h"

#include "base/Avancement.h"
#include "base/Const_Vrac.h"
#include "catalogue/texte/QrtClass.h"
#include "entries/Echange.h"
#include "extensions/langue/modLang.h"
#include "platform/Retenue.h"
#include "vue/VueTable.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QPainter>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

constexpr int Marge = 6;   // around the text of the picture, in pixels
constexpr int AuCoin = 12; // from the pointer to the picture's corner

/// The text of the entries that are selected, made when somebody asks for it: most of those who are dragged over want
/// no more than its name, and a million entries are no small text.
class EntreesTirees : public QMimeData
{
public:
    explicit EntreesTirees(const QrtClass& document)
        : m_table(*document.MyLV), m_vie(document.MyLV->Vie()), m_dossier(AjouterSlash(document.TmpFolder))
    {
    }

    bool hasFormat(const QString& type) const override { return type == Type(); }
    QStringList formats() const override { return {Type()}; }

protected:
    /// Nothing once the document is closed.
    QVariant retrieveData(const QString& type, QMetaType) const override
    {
        if (type != Type())
            return {};
        if (m_texte.isNull() && !m_vie.expired()) {
            SansAvancement sans;
            EcrireEchange(m_table, m_dossier, sans, [this](QByteArrayView octets) { m_texte.append(octets); });
        }
        return m_texte;
    }

private:
    static QString Type() { return u"text/plain"_s; }

    const MyLV& m_table;
    std::weak_ptr<const void> m_vie;
    QString m_dossier;
    mutable QByteArray m_texte;
};

QString EnMots(int entrees)
{
    return entrees == 1
               ? LangMsg(u"msgEntreeTiree"_s, u"1 entrée"_s).texte
               : LangMsg(u"msgEntreesTirees"_s, u"%1 entrées"_s).Remplacer(u"%1"_s, QString::number(entrees)).texte;
}

/// What the pointer carries, in the colours of a selection.
QPixmap Image(const QWidget& vue, const QString& texte)
{
    const QRect cadre = vue.fontMetrics().boundingRect(texte).marginsAdded({Marge, Marge, Marge, Marge});
    QPixmap image(cadre.size() * vue.devicePixelRatioF());
    image.setDevicePixelRatio(vue.devicePixelRatioF());
    image.fill(vue.palette().color(QPalette::Highlight));
    QPainter painter(&image);
    painter.setFont(vue.font());
    painter.setPen(vue.palette().color(QPalette::HighlightedText));
    painter.drawText(QRect(QPoint(), cadre.size()), Qt::AlignCenter, texte);
    return image;
}

bool PeutTirer()
{
    return (QGuiApplication::mouseButtons() & Qt::LeftButton) && !QApplication::activeModalWidget() &&
           !QApplication::activePopupWidget() && !Retenue::EnCours();
}

} // namespace

void TirerEntrees(VueTable& vue, const QrtClass& document)
{
    const int entrees = document.SelItemsCount();
    if (entrees == 0 || !PeutTirer())
        return;
    vue.Tag = VueTable::SourceDrag();
    // The frame's: the window may be closed before the entries are dropped, and a drag dies with its source.
    auto* tirage = new QDrag(vue.window());
    tirage->setMimeData(new EntreesTirees(document));
    tirage->setPixmap(Image(vue, EnMots(entrees)));
    tirage->setHotSpot({-AuCoin, -AuCoin});
    const QPointer<VueTable> encore(&vue);
    QObject::connect(&vue, &QObject::destroyed, tirage, [] { QDrag::cancel(); });
    tirage->exec(Qt::CopyAction);
    if (encore)
        encore->Tag.clear();
}
