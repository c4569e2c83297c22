// All commands that plug-ins bring along, also those for which the menu has no place, and who made them.
#pragma once

#include <QDialog>

#include <memory>

class FenetreDocument;
class PluginAuTravail;
class QListWidgetItem;

namespace Ui {
class frmPlugins;
}

class frmPlugins : public QDialog
{
    Q_OBJECT

public:
    /// On the document of `fenetre`, which lives longer. The folder is listed here.
    explicit frmPlugins(FenetreDocument& fenetre, QWidget* parent = nullptr);
    ~frmPlugins() override;

private:
    void Remplir();
    void List1_Click(const QListWidgetItem* ligne);
    bool Prendre();
    void btLancePlugin_Click();

    FenetreDocument& m_fenetre;
    std::unique_ptr<Ui::frmPlugins> m_ui;
    std::unique_ptr<PluginAuTravail> m_plugin; ///< that of the line, ready to be run
};
