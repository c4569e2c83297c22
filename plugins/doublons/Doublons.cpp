#include "Doublons.h"

#include "frmDoublons.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

class DocumentDuProgramme : public DocumentATrier
{
public:
    explicit DocumentDuProgramme(QObject* document) : m_document(document), m_table(document) {}
    int Lignes() const override { return m_table.Lignes(); }
    int Colonnes() const override { return m_table.Colonnes(); }
    QStringList Lire(const QList<int>& colonnes, int premiere, int nombre) const override
    {
        return m_table.LireColonnes(colonnes, premiere, nombre);
    }
    QStringList Images(int premiere, int nombre) const override { return m_table.LireImages(premiere, nombre); }
    QStringList Titres() const override { return m_table.Titres(); }
    int ColonnePret() const override
    {
        const int colonne = m_document ? m_document->property("IndexColPrete").toInt() : 0;
        return colonne >= 1 && colonne <= Colonnes() ? colonne : 0;
    }
    void Supprimer(const QList<int>& lignes) override { m_table.SupprimerLignes(lignes); }

private:
    QObject* m_document;
    zelvane::Table m_table;
};

/// The window to stand on: that of the handle, or the one in use.
QWidget* FenetreDe(int poignee)
{
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
        if (poignee != 0 && fenetre->internalWinId() != 0 && static_cast<int>(fenetre->internalWinId()) == poignee)
            return fenetre;
    }
    return QApplication::activeWindow();
}

} // namespace

QString Doublons::Name() const
{
    return zelvane::LangMsg(u"plugDoublonsTitre"_s, u"Doublons"_s);
}

QString Doublons::Description() const
{
    return zelvane::LangMsg(u"plugDoublonsDescription"_s,
                            u"Trouve les entrées égales ou presque égales, et supprime celles qui sont de trop"_s);
}

void Doublons::showForm()
{
    DocumentDuProgramme document(m_document);
    frmDoublons form(document, FenetreDe(m_fenetre));
    form.exec();
}

ZELVANE_PLUGIN("Doublons", Doublons)
