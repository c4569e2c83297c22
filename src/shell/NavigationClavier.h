// Goes about in the frame with keys: F6 from the table to the tool bar, to the tabs and back, Ctrl+Tab and Ctrl+PgDn
// from document to document; with Shift, or with Ctrl+PgUp, the other way round.
#pragma once

#include <QObject>

#include <functional>
#include <vector>

class BandeOnglets;
class BarreOutils;

class NavigationClavier : public QObject
{
    Q_OBJECT

public:
    /// `document` gives the active document's window, or null. Nothing is owned; all outlives this.
    NavigationClavier(QWidget& cadre, std::vector<BarreOutils*> barres, BandeOnglets& onglets,
                      std::function<QWidget*()> document);

private:
    enum class Zone { Document, Barre, Onglets };

    void ChangerDeZone(int sens);
    void ChangerDOnglet(int sens);
    Zone ZoneCourante() const;
    bool Aller(Zone zone);
    void RevenirAuDocument();

    std::vector<BarreOutils*> m_barres;
    BandeOnglets& m_onglets;
    std::function<QWidget*()> m_document;
};
