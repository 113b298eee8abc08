#include "PreferencesDialog.h"

#include "mouse_texts.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace zelview
{

using ZELVizCore::Settings;

namespace
{

/// "BackgroundTopColor" as "Background top color".
QString titleOf(Settings::Field const& field)
{
    QString title;
    for (QChar const c : QString::fromLatin1(field.name)) {
        bool const begins = c.isUpper() && !title.isEmpty();
        title += begins ? QLatin1Char(' ') + c.toLower() : QString(c);
    }
    return title;
}

QColor toQt(ZELVizCore::RGBAColor const& color)
{
    return {color.r, color.g, color.b, color.a};
}

QIcon swatch(QColor const& color)
{
    QPixmap pixmap(32, 16);
    pixmap.fill(color);
    QPainter painter(&pixmap);
    painter.setPen(Qt::gray);
    painter.drawRect(0, 0, 31, 15);
    return pixmap;
}

} // namespace

PreferencesDialog::PreferencesDialog(WindowPreferences& window, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Preferences"));
    auto* const content = new QWidget;
    auto* const form = new QFormLayout(content);
    addWindowChoices(*form, window);
    addHandChoices(*form, window);
    addSettings(*form);
    auto* const scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::RestoreDefaults | QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            &PreferencesDialog::restoreDefaults);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(scroll);
    column->addWidget(buttons);
    resize(440, 620);
}

void PreferencesDialog::addWindowChoices(QFormLayout& form, WindowPreferences& window)
{
    auto* const theme = new QComboBox;
    theme->addItems({tr("As the desktop"), tr("Light"), tr("Dark")});
    theme->setCurrentIndex(static_cast<int>(window.theme()));
    theme->setAccessibleName(tr("Theme"));
    connect(theme, &QComboBox::currentIndexChanged, this, [this, &window](int index) {
        window.setTheme(static_cast<ThemeChoice>(index));
        emit themeChanged(static_cast<ThemeChoice>(index));
    });
    form.addRow(tr("Theme"), theme);

    auto* const reload = new QComboBox;
    reload->addItems({tr("Ask"), tr("Reload silently"), tr("Never reload")});
    reload->setCurrentIndex(static_cast<int>(window.reloadMode()));
    reload->setAccessibleName(tr("When a file changes"));
    connect(reload, &QComboBox::currentIndexChanged, this,
            [&window](int index) { window.setReloadMode(static_cast<ReloadMode>(index)); });
    form.addRow(tr("When a file changes"), reload);
}

void PreferencesDialog::addHandChoices(QFormLayout& form, WindowPreferences& window)
{
    auto* const style = new QComboBox;
    for (MoraCore::MouseStyle const& known : MoraCore::MouseStyles) {
        style->addItem(tr(known.name));
        style->setItemData(style->count() - 1, mouseTexts(known).join(QLatin1Char('\n')), Qt::ToolTipRole);
    }
    style->setCurrentText(tr(window.mouseStyle().name));
    style->setAccessibleName(tr("Mouse"));
    style->setObjectName(QStringLiteral("mouse style"));
    connect(style, &QComboBox::currentIndexChanged, this, [this, &window](int index) {
        window.setMouseStyle(MoraCore::MouseStyles[static_cast<std::size_t>(index)]);
        emit handChanged();
    });
    form.addRow(tr("Mouse"), style);

    auto* const hovering = new QCheckBox;
    hovering->setChecked(window.hovering());
    hovering->setAccessibleName(tr("Light up what the mouse points at"));
    hovering->setObjectName(QStringLiteral("hovering"));
    connect(hovering, &QCheckBox::toggled, this, [this, &window](bool on) {
        window.setHovering(on);
        emit handChanged();
    });
    form.addRow(tr("Light up under the mouse"), hovering);
}

void PreferencesDialog::addSettings(QFormLayout& form)
{
    for (Settings::Field const& field : Settings::Fields()) {
        QWidget* const editor = makeEditor(field);
        editor->setObjectName(QString::fromLatin1(field.name));
        editor->setAccessibleName(titleOf(field));
        editor->setToolTip(QString::fromUtf8(field.description));
        form.addRow(titleOf(field), editor);
    }
    for (auto const& read : Readers) read();
}

QWidget* PreferencesDialog::makeEditor(Settings::Field const& field)
{
    Settings& settings = Settings::Current();
    struct Maker {
        PreferencesDialog& dialog;
        Settings& settings;
        Settings::Field const& field;

        QWidget* operator()(bool Settings::*member) const
        {
            auto* const box = new QCheckBox;
            connect(box, &QCheckBox::toggled, &dialog,
                    [d = &dialog, &s = settings, &f = field, member](bool on) {
                        s.*member = on;
                        emit d->settingChanged(f);
                    });
            dialog.Readers.emplace_back([box, &s = settings, member] { box->setChecked(s.*member); });
            return box;
        }

        QWidget* operator()(int Settings::*member) const
        {
            auto* const box = new QSpinBox;
            box->setRange(field.lowest, field.highest);
            connect(box, &QSpinBox::valueChanged, &dialog,
                    [d = &dialog, &s = settings, &f = field, member](int value) {
                        s.*member = value;
                        emit d->settingChanged(f);
                    });
            dialog.Readers.emplace_back([box, &s = settings, member] { box->setValue(s.*member); });
            return box;
        }

        QWidget* operator()(ZELVizCore::RGBAColor Settings::*member) const
        {
            auto* const button = new QPushButton;
            auto const read = [button, &s = settings, member] {
                QColor const color = toQt(s.*member);
                button->setIcon(swatch(color));
                button->setText(color.name());
            };
            connect(button, &QPushButton::clicked, &dialog,
                    [d = &dialog, &s = settings, &f = field, member, read] {
                        QColor const color = QColorDialog::getColor(toQt(s.*member), d, titleOf(f));
                        if (!color.isValid()) return;
                        auto const channel = [](int value) { return static_cast<std::uint8_t>(value); };
                        s.*member = {channel(color.red()), channel(color.green()), channel(color.blue()),
                                     (s.*member).a};
                        read();
                        emit d->settingChanged(f);
                    });
            dialog.Readers.emplace_back(read);
            return button;
        }
    };
    return std::visit(Maker{*this, settings, field}, field.member);
}

void PreferencesDialog::restoreDefaults()
{
    Settings::Current() = Settings::Default();
    for (auto const& read : Readers) read();
    for (Settings::Field const& field : Settings::Fields()) emit settingChanged(field);
}

} // namespace zelview
