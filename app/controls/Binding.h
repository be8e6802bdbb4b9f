// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Chart.h"
#include "ui/controls/Controls.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/controls/ListBox.h"

class QAbstractButton;
class QAction;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QObject;
class QKeySequence;
class QMenu;
class QWidget;

namespace vorhaven {

class ArmyListView;
class ChartView;
class DropDown;
class GridView;
class NumberBox;
class Picker;

/// Keeps a connection for as long as its owner lives.
void KeepWith(QObject& owner, Connection connection);

/// Gives a widget its control's name and its tooltip, which is its description for screen readers too.
void Identify(QWidget& widget, const Control& control);

// One function for each kind of control: it shows the control in its widget for as long as the widget lives,
// and passes what the user does in the widget on to the control. The control must outlive the widget's user
// input.

void Bind(QLabel& widget, Label& control);
void Bind(QGroupBox& widget, Frame& control);
void Bind(QPushButton& widget, Button& control);
void Bind(QCheckBox& widget, CheckButton& control);
void Bind(QLineEdit& widget, TextBox& control);
void Bind(DropDown& widget, ComboBox& control);
/// Each choice in the picker's open list counts, also of the entry that is selected already.
void Bind(Picker& widget, ComboBox& control);
void Bind(ArmyListView& widget, ListBox& control);
void Bind(QProgressBar& widget, ProgressBar& control);
void Bind(QLabel& widget, StatusPanel& control);
void Bind(QAction& action, MenuItem& control);
void Bind(GridView& widget, Grid& control);
void Bind(ChartView& widget, Chart& control);
void Bind(NumberBox& widget, UpDown& control);

/// Adds an item to a menu, with the key that does the same where the menu is closed; who adds it sees to that
/// key, which an open menu does not hear.
void AddItem(QMenu& menu, MenuItem& control, const QKeySequence& key);

/// Informs the window's model when the widget gets the focus.
void BindFocus(QWidget& widget, Form& form, Control& control);

/// Makes a label the name of a field: its buddy, and what screen readers call a field that has no text of its
/// own.
void LabelField(QWidget& field, QLabel& label);

} // namespace vorhaven
