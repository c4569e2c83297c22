// The tree of the groups: all open, and it gets more of them, and of each, before the user comes to the end of what it
// has.
#pragma once

#include <QTimer>
#include <QTreeView>

class VueDeGroupes : public QTreeView
{
    Q_OBJECT

public:
    explicit VueDeGroupes(QWidget* parent = nullptr);

    void reset() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int premiere, int derniere) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void OuvrirGroupes(int premier, int dernier);
    void Completer();

    QTimer m_bientot;
};
