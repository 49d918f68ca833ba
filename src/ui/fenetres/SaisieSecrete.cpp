#include "SaisieSecrete.h"

#include "ui/Art.h"

#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace SaisieSecrete {

namespace {

const char *const kOeil = "korvaneOeil";
constexpr QKeyCombination kTouche = Qt::CTRL | Qt::Key_H;

QAction *oeil(const QLineEdit *boite) { return boite->property(kOeil).value<QAction *>(); }

// Ctrl+H belongs to the box while it has the keyboard.
class Filtre : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject *objet, QEvent *evenement) override {
        const auto type = evenement->type();
        if (type != QEvent::ShortcutOverride && type != QEvent::KeyPress) return false;
        if (static_cast<QKeyEvent *>(evenement)->keyCombination() != kTouche) return false;
        if (type == QEvent::ShortcutOverride) {
            evenement->accept();
            return true;
        }
        auto *boite = static_cast<QLineEdit *>(objet);
        montrer(boite, !estVisible(boite));
        return true;
    }
};

}  // namespace

void equiper(QLineEdit *boite) {
    auto *action = boite->addAction(QIcon(), QLineEdit::TrailingPosition);
    boite->setProperty(kOeil, QVariant::fromValue(action));
    QObject::connect(action, &QAction::triggered, boite, [boite] { montrer(boite, !estVisible(boite)); });
    boite->installEventFilter(new Filtre(boite));
    // Shown, a selected text would go to the primary selection: it is taken back at once.
    QClipboard *presse = QGuiApplication::clipboard();
    QObject::connect(presse, &QClipboard::selectionChanged, boite, [boite, presse] {
        if (boite->echoMode() == QLineEdit::Normal && boite->hasSelectedText() && presse->ownsSelection() &&
            presse->text(QClipboard::Selection) == boite->selectedText())
            presse->clear(QClipboard::Selection);
    });
    montrer(boite, false);
}

void montrer(QLineEdit *boite, bool visible) {
    boite->setEchoMode(visible ? QLineEdit::Normal : QLineEdit::Password);
    if (QAction *action = oeil(boite)) {
        action->setIcon(QIcon(Art::iconeTheme(QString::fromLatin1(visible ? "view-hidden" : "view-visible"), 16)));
        action->setToolTip(visible ? QStringLiteral("Masquer le mot de passe (Ctrl+H)") : QStringLiteral("Afficher le mot de passe (Ctrl+H)"));
    }
}

bool estVisible(const QLineEdit *boite) { return boite->echoMode() == QLineEdit::Normal; }

}  // namespace SaisieSecrete
