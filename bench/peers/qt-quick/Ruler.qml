import QtQuick

// All ticks of a time, side by side in a strip that is moved.
Item {
    id: root
    property int majors
    property int minors
    property real step
    property real pitch
    property real at: 0
    width: 1000
    height: 40
    clip: true
    Timecode { id: timecode }
    Item {
        x: -root.at
        width: root.majors * root.pitch
        height: root.height
        Repeater {
            model: root.majors
            Tick {
                required property int index
                x: index * root.pitch
                height: root.height
                label: timecode.text(index * root.step)
            }
        }
        Repeater {
            model: root.minors
            Rectangle {
                required property int index
                x: (index + 1) * root.pitch / 2
                width: 1
                height: 0.15 * root.height
                color: "gray"
            }
        }
    }
}
