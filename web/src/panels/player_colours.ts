// Every player's colour, the same in the player box and the charts, as the window's.
const colours = ["#1f77b4", "#d62728", "#2ca02c", "#ff7f0e", "#9467bd", "#8c564b",
  "#e377c2", "#17becf", "#bcbd22", "#393b79", "#7f7f7f", "#ad494a"];

// Player `place` from 1; beyond twelve players hues spread by the golden angle.
export function playerColour(place: number): string {
  const index = place - 1;
  if (index >= 0 && index < colours.length) return colours[index];
  return `hsl(${Math.trunc(index * 137.508) % 360} 58% 45%)`;
}
