// The 16 field pictures, decoded once as they are stored (no colour conversion, so that a
// field at 20 px is the picture's own pixels), and strips of all 16 at the size being shown.
import fieldPictureUris from "trelvin-field-pictures";

export const naturalFieldPixels = 20;

export class FieldPictures {
  private strips = new Map<number, HTMLCanvasElement>();
  private bitmaps = new Map<number, ImageBitmap>();

  private constructor(private readonly pictures: ImageBitmap[]) {}

  static async decode(): Promise<FieldPictures> {
    const pictures = await Promise.all(fieldPictureUris.map(async (uri) => {
      const bytes = Uint8Array.from(atob(uri.slice(uri.indexOf(",") + 1)), (c) => c.charCodeAt(0));
      return createImageBitmap(new Blob([bytes], { type: "image/png" }),
        { colorSpaceConversion: "none", premultiplyAlpha: "none" });
    }));
    return new FieldPictures(pictures);
  }

  // The 16 pictures side by side, each `side` device pixels square: smoothed below the natural
  // size, as the window does, and kept sharp at it and above.
  strip(side: number): CanvasImageSource {
    const bitmap = this.bitmaps.get(side);
    if (bitmap) return bitmap;
    let strip = this.strips.get(side);
    if (strip) return strip;
    strip = document.createElement("canvas");
    strip.width = side * this.pictures.length;
    strip.height = side;
    const context = strip.getContext("2d")!;
    context.imageSmoothingEnabled = side < naturalFieldPixels;
    context.imageSmoothingQuality = "high";
    this.pictures.forEach((picture, index) => context.drawImage(picture, index * side, 0, side, side));
    if (this.strips.size > 8) this.strips.clear();
    this.strips.set(side, strip);
    // Drawn from a bitmap, a field is drawn in a fraction of the time a canvas takes; until it is
    // made, from the canvas.
    if (this.bitmaps.size > 8) this.bitmaps.clear();
    void createImageBitmap(strip).then((made) => this.bitmaps.set(side, made));
    return strip;
  }
}
