import QtQuick

Item {
    property alias label: text.text
    width: 1
    Rectangle {
        width: 1
        height: 0.75 * parent.height
        color: "gray"
    }
    Text {
        id: text
        x: 4
        anchors.verticalCenter: parent.verticalCenter
        textFormat: Text.PlainText
        color: "gray"
    }
}
