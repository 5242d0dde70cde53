#pragma once
// The rules of the action keywords; each runs inside the executor's frame.
#include "engine/rule_context.h"

namespace trelvin {

void ApplyCreateWorld(RuleContext& ctx);
void ApplyCreateHq(RuleContext& ctx);
void ApplyStart(RuleContext& ctx);
void ApplyAddRounds(RuleContext& ctx);
void ApplyEndHoldFire(RuleContext& ctx);
void ApplyEnd(RuleContext& ctx);

void ApplyAttack(RuleContext& ctx);

void ApplyMove(RuleContext& ctx);
void ApplyRetreat(RuleContext& ctx);

void ApplyBuy(RuleContext& ctx);
void ApplyConvertGround(RuleContext& ctx);
void ApplyTrade(RuleContext& ctx);

}  // namespace trelvin
