// The page's elements by id, there or the page is broken.
export function element<T extends HTMLElement = HTMLElement>(id: string): T {
  const found = document.getElementById(id);
  if (!found) throw new Error(`#${id} is missing from the page`);
  return found as T;
}

// A paint on the next frame, once however often it is asked for before then.
export function onNextFrame(paintNow: () => void): () => void {
  let scheduled = false;
  return () => {
    if (scheduled) return;
    scheduled = true;
    requestAnimationFrame(() => {
      scheduled = false;
      paintNow();
    });
  };
}
