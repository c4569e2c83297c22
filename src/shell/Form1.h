// The window of one open category: its table, its status line and its waiting panels.
#pragma once

#include "catalogue/FenetreDocument.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class VueTable;

namespace Ui {
class Form1;
}

class Form1 : public QMainWindow, public FenetreDocument
{
    Q_OBJECT

public:
    explicit Form1(QWidget* parent = nullptr);
    ~Form1() override;

    void Decharger() override;

    QString Caption() const override { return windowTitle(); }
    void SetCaption(const QString& titre) override { setWindowTitle(titre); }

    /// Shows the counts of entries and of selected entries.
    void RedrawAll();

    VueTable& ListView1() const;

protected:
    /// The window goes, and the document's folder with it, unless the document asks to keep that.
    void closeEvent(QCloseEvent* event) override;

private:
    void SupprimerTmpFolder();
    void FaireLigneDEtat();

    MyLV m_table;
    std::unique_ptr<Ui::Form1> m_ui;
    QLabel* m_nombre = nullptr;
    QLabel* m_choisies = nullptr;
};
