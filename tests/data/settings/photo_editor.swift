#if os(OSX)
import ZQSwiftUI
#else
import ZQSwiftUI_iOS
#endif


extension ZQConfig {

	var Canvas_maxZoom : Double {
#if DEBUG
		double ("Canvas", "maxZoom")
#else
		16.0
#endif
	}

	var Canvas_minZoom : Double {
#if DEBUG
		double ("Canvas", "minZoom")
#else
		0.05
#endif
	}

	var Canvas_zoomStep : Double {
#if DEBUG
		double ("Canvas", "zoomStep")
#else
		1.25
#endif
	}

	var Canvas_showGrid : Bool {
#if DEBUG
		bool ("Canvas", "showGrid")
#else
		false
#endif
	}

	var Canvas_gridSize : ZQUICPointSize {
#if DEBUG
		pointSize ("Canvas", "gridSize")
#else
		ZQUICPointSize (x: 16.0, y: 16.0)
#endif
	}

	var Canvas_checkerboardSize : Int {
#if DEBUG
		int ("Canvas", "checkerboardSize")
#else
		8
#endif
	}

	var Brush_defaultRadius : Double {
#if DEBUG
		double ("Brush", "defaultRadius")
#else
		12.5
#endif
	}

	var Brush_maxRadius : Double {
#if DEBUG
		double ("Brush", "maxRadius")
#else
		500.0
#endif
	}

	var Brush_Hardness : Double {
#if DEBUG
		double ("Brush", "Hardness")
#else
		0.8
#endif
	}

	var Brush_pressureAffectsRadius : Bool {
#if DEBUG
		bool ("Brush", "pressureAffectsRadius")
#else
		true
#endif
	}

	var Brush_tipOffset : ZQUICPointSize {
#if DEBUG
		pointSize ("Brush", "tipOffset")
#else
		ZQUICPointSize (x: 0.0, y: -1.5)
#endif
	}

	var History_undoLevels : Int {
#if DEBUG
		int ("History", "undoLevels")
#else
		200
#endif
	}

	var History_memoryLimitBytes : Int {
#if DEBUG
		int ("History", "memoryLimitBytes")
#else
		2147483648
#endif
	}

	var History_keepAfterSave : Bool {
#if DEBUG
		bool ("History", "keepAfterSave")
#else
		true
#endif
	}

	var exportDialog_defaultFormat : String {
#if DEBUG
		string ("exportDialog", "defaultFormat")
#else
		"png"
#endif
	}

	var exportDialog_jpegQuality : Double {
#if DEBUG
		double ("exportDialog", "jpegQuality")
#else
		0.92
#endif
	}

	var exportDialog_fileNameTemplate : String {
#if DEBUG
		string ("exportDialog", "fileNameTemplate")
#else
		"{name}-{date}"
#endif
	}

	var exportDialog_stripMetadata : Bool {
#if DEBUG
		bool ("exportDialog", "stripMetadata")
#else
		false
#endif
	}

	var Texts_Welcome : String {
#if DEBUG
		string ("Texts", "Welcome")
#else
		"Drop a picture here"
#endif
	}

	var Texts_outOfMemory : String {
#if DEBUG
		string ("Texts", "outOfMemory")
#else
		"Not enough memory.
Close some pictures and try again."
#endif
	}

	var Texts_größeÄndern : String {
#if DEBUG
		string ("Texts", "größeÄndern")
#else
		"Größe ändern …"
#endif
	}

	var Texts_Copyright : String {
#if DEBUG
		string ("Texts", "Copyright")
#else
		"© 2026 "Example" Ltd."
#endif
	}

}